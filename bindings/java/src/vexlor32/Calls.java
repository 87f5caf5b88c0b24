// SPDX-License-Identifier: MIT
package vexlor32;

import com.sun.jna.Function;
import com.sun.jna.Library;
import com.sun.jna.Memory;
import com.sun.jna.Native;
import com.sun.jna.NativeLibrary;
import com.sun.jna.Platform;
import com.sun.jna.Pointer;
import java.io.File;
import java.io.IOException;
import java.net.URISyntaxException;
import java.nio.ByteBuffer;
import java.security.CodeSource;
import java.util.Map;
import java.util.concurrent.ConcurrentHashMap;

/** Loads the library and calls it; what it would trust without looking is checked here. */
final class Calls {
    private static final int BITS = 8 * Native.POINTER_SIZE;
    private static final int RTLD_LAZY = 1;
    private static final NativeLibrary LIBRARY = load();
    private static final Map<String, Function> FUNCTIONS = new ConcurrentHashMap<>();

    private Calls() {}

    /** The library inside the jar or beside it, or else the one that the loader finds; VEXLOR32_LIBRARY names another. */
    private static String libraryFile() {
        String given = System.getenv("VEXLOR32_LIBRARY");
        if (given != null && !given.isEmpty()) return given;
        if (!Platform.isWindows() && BITS != 64) {
            throw new UnsatisfiedLinkError("Here the library is for 64-bit programs; this Java has " + BITS + " bits.");
        }
        String name = Platform.isWindows() ? "Vexlor" + BITS + ".dll" : "libvexlor32.so.5";
        try {
            return Native.extractFromResourcePath("/" + Platform.RESOURCE_PREFIX + "/" + name, Calls.class.getClassLoader())
                    .getPath();
        } catch (IOException absent) {
            File beside = new File(folder(), name);
            return beside.exists() ? beside.getPath() : name;
        }
    }

    private static File folder() {
        CodeSource source = Calls.class.getProtectionDomain().getCodeSource();
        try {
            File place = source == null ? new File(".") : new File(source.getLocation().toURI());
            return place.isDirectory() ? place : place.getParentFile();
        } catch (URISyntaxException | IllegalArgumentException elsewhere) {
            return new File(".");
        }
    }

    private static NativeLibrary load() {
        String file = libraryFile();
        Map<String, Object> options = Map.of();
        if (!Platform.isWindows()) {
            // JNA's own flags would offer our names to libraries that are loaded later, and some are those of zlib.
            options = Map.of(Library.OPTION_OPEN_FLAGS, RTLD_LAZY);
        } else if (BITS == 32) {
            options = Map.of(Library.OPTION_CALLING_CONVENTION, Function.ALT_CONVENTION);
        }
        try {
            return NativeLibrary.getInstance(file, options);
        } catch (UnsatisfiedLinkError error) {
            throw new UnsatisfiedLinkError("cannot load " + file + " into this " + BITS + "-bit program: "
                    + error.getMessage() + "; VEXLOR32_LIBRARY may name the file");
        }
    }

    private static Function function(String name, Object[] arguments) {
        for (int i = 0; i < arguments.length; ++i) {
            for (int j = 0; j < i; ++j) {
                if (arguments[i] != null && arguments[i] == arguments[j] && arguments[i].getClass().isArray()) {
                    throw new IllegalArgumentException("arguments " + (j + 1) + " and " + (i + 1) + " of " + name
                            + " are one array, which the function would see as two: use a Memory");
                }
            }
        }
        return FUNCTIONS.computeIfAbsent(name, LIBRARY::getFunction);
    }

    static void none(String name, Object... arguments) {
        function(name, arguments).invokeVoid(arguments);
    }

    static int number(String name, Object... arguments) {
        return function(name, arguments).invokeInt(arguments);
    }

    static long unsigned(String name, Object... arguments) {
        return Integer.toUnsignedLong(function(name, arguments).invokeInt(arguments));
    }

    static Pointer pointer(String name, Object... arguments) {
        return function(name, arguments).invokePointer(arguments);
    }

    static int unsigned(long value) {
        if (value < 0 || value > 0xFFFFFFFFL) {
            throw new IllegalArgumentException(value + " is no unsigned number of 32 bits");
        }
        return (int) value;
    }

    static byte[] text(byte[] text) {
        if (text != null && Texts.end(text) == text.length) throw new IllegalArgumentException("the text does not end with NUL");
        return text;
    }

    /** An address is taken as it is; a Memory has a size, and its text ends in it. */
    static Pointer text(Pointer text) {
        if (text instanceof Memory) {
            ByteBuffer bytes = text.getByteBuffer(0, ((Memory) text).size());
            boolean ends = false;
            while (!ends && bytes.hasRemaining()) ends = bytes.get() == 0;
            if (!ends) throw new IllegalArgumentException("the text does not end with NUL");
        }
        return text;
    }

    static int[] room(int[] numbers) {
        if (numbers != null && numbers.length == 0) throw new IllegalArgumentException("an array without a place for the number");
        return numbers;
    }

    static Pointer room(Pointer number) {
        if (number instanceof Memory && ((Memory) number).size() < 4) {
            throw new IllegalArgumentException("memory too small for the number");
        }
        return number;
    }
}
