// SPDX-License-Identifier: MIT
package vexlor32;

import com.sun.jna.Memory;
import com.sun.jna.Platform;
import com.sun.jna.Pointer;
import java.nio.ByteBuffer;
import java.nio.CharBuffer;
import java.nio.charset.CharacterCodingException;
import java.nio.charset.Charset;
import java.nio.charset.StandardCharsets;
import java.util.Arrays;
import java.util.Map;

/** Texts and blocks as the library takes them, and back. */
public final class Texts {
    private static final long LARGEST_ROOM = Integer.MAX_VALUE - 8;
    private static final long LEAST_HOST_ROOM = 1 << 18; // no program is started with a longer text
    private static volatile Charset charset = Platform.isWindows()
            ? Charset.forName(System.getProperty("sun.jnu.encoding", "windows-1252"))
            : StandardCharsets.ISO_8859_1;

    private Texts() {}

    /**
     * The code page of texts from now on; at first Latin-1, on Windows that of the system.
     *
     * @param name one of single bytes, as {@code IBM437}
     */
    public static void setEncoding(String name) {
        Charset wanted = Charset.forName(name);
        if (!wanted.canEncode() || wanted.newEncoder().maxBytesPerChar() != 1 || wanted.encode("a").get(0) != 'a') {
            throw new IllegalArgumentException(name + " is no code page of single bytes");
        }
        charset = wanted;
    }

    static byte[] encoded(String text) {
        if (text == null) return null;
        if (text.indexOf(0) >= 0) throw new IllegalArgumentException("the text has a NUL in it");
        try {
            ByteBuffer bytes = charset.newEncoder().encode(CharBuffer.wrap(text));
            return Arrays.copyOf(Arrays.copyOf(bytes.array(), bytes.limit()), bytes.limit() + 1);
        } catch (CharacterCodingException error) {
            throw new IllegalArgumentException("the text has characters that " + charset + " lacks", error);
        }
    }

    /** Where the text ends: at its NUL, or with the array. */
    static int end(byte[] bytes) {
        int end = 0;
        while (end < bytes.length && bytes[end] != 0) ++end;
        return end;
    }

    static String decoded(byte[] bytes) {
        return bytes == null ? null : new String(bytes, 0, end(bytes), charset);
    }

    static String decoded(Pointer place) {
        return place == null ? null : decoded(place.getByteArray(0, (int) place.indexOf(0, (byte) 0)));
    }

    static long size(byte[] text) {
        return text == null ? 0 : text.length - 1;
    }

    static long size(Memory text) {
        return text == null ? 0 : text.size() - 1;
    }

    /** The room for the longest text of the command line and of the environment. */
    static long hostRoom() {
        long most = LEAST_HOST_ROOM;
        for (Map.Entry<String, String> entry : System.getenv().entrySet()) {
            most = Math.max(most, 4L * (entry.getKey().length() + entry.getValue().length()) + 2);
        }
        return most;
    }

    static byte[] destination(long room) {
        if (room > LARGEST_ROOM) throw new IllegalArgumentException("the result could need " + room + " bytes");
        return new byte[(int) Math.max(room, 1)];
    }

    /** The same bytes where they keep their address. */
    static Memory memory(byte[] bytes) {
        if (bytes == null) return null;
        Memory memory = new Memory(Math.max(bytes.length, 1));
        memory.write(0, bytes, 0, bytes.length);
        return memory;
    }

    /** The block has to have what the call needs; below 0, {@code before} counts bytes in front of where it begins. */
    static byte[] checked(byte[] block, long needed, int before) {
        long front = Math.max(-(long) before, 0);
        if (block != null && block.length < needed + front) {
            throw new IllegalArgumentException(block.length + " bytes, where the call needs " + (needed + front));
        }
        return block;
    }

    static Pointer at(Memory block, int before) {
        return block == null || before >= 0 ? block : block.share(-(long) before);
    }

    static void copyBack(Memory from, byte[] block) {
        if (block != null) from.read(0, block, 0, block.length);
    }

    static Integer offset(Pointer start, Pointer place) {
        return place == null || start == null ? null : (int) (Pointer.nativeValue(place) - Pointer.nativeValue(start));
    }
}
