// Makes the calls of the conformance library (conformance.h) through the Java classes.
package vexlor32;

import com.sun.jna.Callback;
import com.sun.jna.Native;
import com.sun.jna.Pointer;
import java.io.IOException;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Arrays;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.stream.Collectors;
import java.util.stream.IntStream;

public final class Caller {
    static {
        Native.register("vexlor_conformance");
    }

    public interface Call extends Callback {
        void call(String name, int count);
    }

    static native int vxc_run(int traits, String errors, Call call);
    static native int vxc_is_friendly();
    static native int vxc_kind(int i);
    static native long vxc_number(int i);
    static native Pointer vxc_memory(int i);
    static native long vxc_size(int i);
    static native long vxc_offset(int i);
    static native Pointer vxc_pointer(int i);
    static native void vxc_gave_number(long number);
    static native void vxc_gave_place(Pointer place);
    static native void vxc_gave_text(byte[] text, long size);
    static native void vxc_gave_null();
    static native void vxc_refused(String words);

    private static final Map<String, List<Method>> EXACT = byName(Exact.class);
    private static final Map<String, Class<?>> FRIENDLY = Map.of("Vexlor32", Vexlor32.class, "Table", Table.class, "VexlorFile", VexlorFile.class);
    private static final Map<String, String[]> ENTRIES = new HashMap<>();
    private static final Map<String, Handle> OPENED = new HashMap<>();

    private static Map<String, List<Method>> byName(Class<?> owner) {
        return Arrays.stream(owner.getMethods()).collect(Collectors.groupingBy(Method::getName));
    }

    private static byte[] content(int i) {
        return vxc_size(i) == 0 ? new byte[0] : vxc_memory(i).getByteArray(0, (int) vxc_size(i));
    }

    /** By arrays where addresses tell nothing more, so that both forms are called. */
    private static Method form(String name, int count) {
        List<Method> forms = EXACT.get(name);
        if (forms == null) throw new IllegalArgumentException("there is no " + name);
        boolean places = forms.get(0).getReturnType() == Pointer.class
                || IntStream.range(0, count).anyMatch(i -> vxc_kind(i) == '=' || vxc_offset(i) != 0);
        return forms.stream().filter(m -> Arrays.asList(m.getParameterTypes()).contains(Pointer.class) == places).findFirst().orElse(forms.get(0));
    }

    private static Object exactArgument(int i, Class<?> type) {
        if (type == long.class) return vxc_number(i);
        if (type == int.class) return (int) vxc_number(i);
        if (vxc_kind(i) == 'z') return null;
        if (type == byte[].class) return content(i);
        return type == int[].class ? vxc_pointer(i).getIntArray(0, 1) : vxc_pointer(i);
    }

    private static void exactCall(String name, int count) throws ReflectiveOperationException {
        Method method = form(name, count);
        Object[] given = new Object[count];
        for (int i = 0; i < count; ++i) given[i] = exactArgument(i, method.getParameterTypes()[i]);
        Object result = method.invoke(null, given);
        for (int i = 0; i < count; ++i) {
            if (given[i] instanceof byte[]) vxc_pointer(i).write(0, (byte[]) given[i], 0, ((byte[]) given[i]).length);
            if (given[i] instanceof int[]) vxc_pointer(i).setInt(0, ((int[]) given[i])[0]);
        }
        if (method.getReturnType() == Pointer.class) vxc_gave_place((Pointer) result);
        else if (method.getReturnType() != void.class) vxc_gave_number(((Number) result).longValue());
    }

    private static Object friendlyArgument(int i, Class<?> type) {
        char kind = (char) vxc_kind(i);
        if (kind == 'T' || kind == 'F') return OPENED.get(kind + "" + vxc_number(i));
        if (kind == 'z') return null;
        if (kind == 'b' || kind == 'B') return content(i);
        if (kind != 'n') return new String(content(i), kind == 't' ? StandardCharsets.ISO_8859_1 : StandardCharsets.UTF_8);
        return type == long.class ? (Object) vxc_number(i) : (Object) (int) vxc_number(i);
    }

    private static void give(Object value) {
        if (value instanceof String) value = ((String) value).getBytes(StandardCharsets.ISO_8859_1);
        if (value instanceof byte[]) {
            vxc_gave_text((byte[]) value, ((byte[]) value).length);
        } else if (value instanceof Handle) {
            OPENED.put((value instanceof Table ? "T" : "F") + ((Handle) value).handle(), (Handle) value);
            vxc_gave_number(((Handle) value).handle());
        } else if (value instanceof Boolean) {
            vxc_gave_number((Boolean) value ? 1 : 0);
        } else if (value != null) {
            vxc_gave_number(((Number) value).longValue());
        } else {
            vxc_gave_null();
        }
    }

    private static void friendlyCall(String main, int count) throws ReflectiveOperationException {
        String[] entry = ENTRIES.get(main);
        int own = entry[1].equals("Vexlor32") ? 0 : 1;
        Method method = byName(FRIENDLY.get(entry[1])).get(entry[2]).get(0);
        Object[] given = new Object[count];
        for (int i = 0; i < count; ++i) given[i] = friendlyArgument(i, i < own ? Handle.class : method.getParameterTypes()[i - own]);
        Object result = method.invoke(own == 0 ? null : given[0], Arrays.copyOfRange(given, own, count));
        String[] outputs = entry[3].isEmpty() ? new String[0] : entry[3].split(",");
        for (String output : outputs) give(outputs.length == 1 ? result : result.getClass().getMethod(output).invoke(result));
        for (int i = 0; i < count; ++i) {
            if (vxc_kind(i) == 'B') give(given[i]);
        }
    }

    private static void make(String name, int count) {
        try {
            if (vxc_is_friendly() != 0) friendlyCall(name, count);
            else exactCall(name, count);
        } catch (Throwable error) { // whatever it is, the row shows it
            vxc_refused((error instanceof InvocationTargetException ? error.getCause() : error).toString());
        }
    }

    public static void main(String[] arguments) throws IOException {
        for (String line : Files.readAllLines(Path.of(arguments[0]))) ENTRIES.put(line.substring(0, line.indexOf(';')), line.split(";", -1));
        System.exit(vxc_run(2 + 4, "IllegalArgumentException|IllegalStateException", Caller::make));
    }
}
