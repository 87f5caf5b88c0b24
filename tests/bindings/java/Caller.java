// Makes the calls of vexlor_conformance through the Java classes; caller_process.h has the protocol.
package vexlor32;

import com.sun.jna.Memory;
import com.sun.jna.NativeLibrary;
import com.sun.jna.Pointer;
import java.io.BufferedReader;
import java.io.IOException;
import java.io.InputStreamReader;
import java.io.PrintStream;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.nio.ByteBuffer;
import java.nio.ByteOrder;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.HashMap;
import java.util.HexFormat;
import java.util.List;
import java.util.Map;

public final class Caller {
    private static final HexFormat HEX = HexFormat.of();
    private static final Map<String, List<Method>> EXACT = byName(Exact.class);
    private static final Map<String, Map<String, List<Method>>> FRIENDLY = Map.of("Vexlor32", byName(Vexlor32.class), "Table",
            byName(Table.class), "VexlorFile", byName(VexlorFile.class));
    private static final Map<String, String[]> ENTRIES = new HashMap<>();
    private static final Map<String, Handle> OPENED = new HashMap<>();

    private static Map<String, List<Method>> byName(Class<?> owner) {
        Map<String, List<Method>> methods = new HashMap<>();
        for (Method m : owner.getMethods()) methods.computeIfAbsent(m.getName(), n -> new ArrayList<>()).add(m);
        return methods;
    }

    private static byte[] content(String word) {
        int at = word.indexOf('@');
        return HEX.parseHex(word.substring(1, at < 0 ? word.length() : at));
    }

    /** By arrays where addresses tell nothing more, so that both forms are called. */
    private static Method form(String name, String[] words) {
        List<Method> forms = EXACT.get(name);
        if (forms == null) throw new IllegalArgumentException("there is no " + name);
        boolean places = forms.get(0).getReturnType() == Pointer.class
                || Arrays.stream(words).anyMatch(w -> w.startsWith("=") || w.startsWith("m") && !w.endsWith("@0"));
        for (Method m : forms) {
            if (Arrays.asList(m.getParameterTypes()).contains(Pointer.class) == places) return m;
        }
        return forms.get(0);
    }

    private static Object memory(String word, Class<?> type) {
        byte[] bytes = content(word);
        if (type == byte[].class) return bytes;
        if (type == int[].class) return new int[] {ByteBuffer.wrap(bytes).order(ByteOrder.LITTLE_ENDIAN).getInt()};
        return Texts.memory(bytes);
    }

    private static byte[] after(Object memory, int size) {
        if (memory instanceof byte[]) return (byte[]) memory;
        if (memory instanceof Memory) return ((Memory) memory).getByteArray(0, size);
        return ByteBuffer.allocate(4).order(ByteOrder.LITTLE_ENDIAN).putInt(((int[]) memory)[0]).array();
    }

    private static String exactCall(String name, String[] words) throws ReflectiveOperationException {
        Method method = form(name, words);
        Class<?>[] types = method.getParameterTypes();
        Object[] memories = new Object[words.length];
        Object[] given = new Object[words.length];
        for (int i = 0; i < words.length; ++i) {
            char kind = words[i].charAt(0);
            if (kind == 'n') {
                long number = Long.parseLong(words[i].substring(1));
                given[i] = types[i] == long.class ? (Object) number : (Object) (int) number;
            } else if (kind == '=') {
                given[i] = given[Integer.parseInt(words[i].substring(1, words[i].indexOf('@')))];
            } else if (kind == 'm') {
                memories[i] = memory(words[i], types[i]);
                long offset = Long.parseLong(words[i].substring(words[i].indexOf('@') + 1));
                given[i] = offset == 0 ? memories[i] : ((Memory) memories[i]).share(offset);
            }
        }
        StringBuilder answer = new StringBuilder(shown(method, method.invoke(null, given), memories, words));
        for (int i = 0; i < words.length; ++i) {
            if (memories[i] != null) answer.append(" m").append(HEX.formatHex(after(memories[i], content(words[i]).length)));
        }
        return answer.toString();
    }

    private static String shown(Method method, Object result, Object[] memories, String[] words) {
        if (method.getReturnType() == void.class) return "v";
        if (result == null) return "z";
        if (!(result instanceof Pointer)) return "n" + result;
        for (int beyond = 0; beyond < 2; ++beyond) { // the end of one may be the beginning of another
            for (int i = 0; i < memories.length; ++i) {
                if (memories[i] == null) continue;
                int offset = Texts.offset((Memory) memories[i], (Pointer) result);
                if (offset >= 0 && offset < content(words[i]).length + beyond) return "p" + i + "@" + offset;
            }
        }
        Pointer text = (Pointer) result;
        return "t" + HEX.formatHex(text.getByteArray(0, (int) text.indexOf(0, (byte) 0)));
    }

    private static Object friendlyArgument(String word, String kind, int base) {
        if (kind.equals("table") || kind.equals("handle")) return OPENED.get(kind + word);
        if (word.equals("z")) return null;
        if (word.charAt(0) == 't') {
            boolean isBlock = kind.equals("bytes") || kind.equals("block");
            return isBlock ? content(word) : new String(content(word), StandardCharsets.ISO_8859_1);
        }
        long number = Long.parseLong(word.substring(1));
        return kind.equals("uint") ? (Object) number : (Object) (int) (number - (kind.equals("pos") && base == 1 ? 1 : 0));
    }

    private static String friendlyOutput(Object value, String kind, String place, int base) {
        if (kind.equals("Table") || kind.equals("File")) {
            if (value == null) return kind.equals("Table") ? "n0" : "n-1";
            String word = "n" + ((Handle) value).handle();
            OPENED.put((kind.equals("Table") ? "table" : "handle") + word, (Handle) value);
            return word;
        }
        if (value == null) return "z";
        if (kind.equals("text")) return "t" + HEX.formatHex(((String) value).getBytes(StandardCharsets.ISO_8859_1));
        if (kind.equals("offset")) return "p" + place + "@" + value;
        if (kind.equals("bool")) return (Boolean) value ? "n1" : "n0";
        return "n" + (((Number) value).longValue() + (kind.equals("pos") && base == 1 ? 1 : 0));
    }

    private static String[] list(String[] entry, int index) {
        return entry[index].isEmpty() ? new String[0] : entry[index].split(",");
    }

    private static String friendlyCall(String main, String[] words) throws ReflectiveOperationException {
        String[] entry = ENTRIES.get(main);
        int base = Integer.parseInt(entry[3]);
        String[] parameters = list(entry, 4);
        String[] outputs = list(entry, 5);
        Object[] given = new Object[words.length];
        for (int i = 0; i < words.length; ++i) given[i] = friendlyArgument(words[i], parameters[i].split(":")[1], base);
        boolean isMethod = !entry[1].equals("Vexlor32");
        Method method = FRIENDLY.get(entry[1]).get(entry[2]).get(0);
        Object result = method.invoke(isMethod ? given[0] : null, isMethod ? Arrays.copyOfRange(given, 1, given.length) : given);
        String first = null;
        String written = null;
        StringBuilder others = new StringBuilder();
        for (String output : outputs) {
            String[] parts = output.split(":", -1);
            Object value = outputs.length == 1 ? result : result.getClass().getMethod(parts[0]).invoke(result);
            String word = friendlyOutput(value, parts[1], parts[2], base);
            if (parts[0].equals("result")) {
                first = word;
                continue;
            }
            if (written == null && parts[1].equals("text")) written = word.equals("z") ? "z" : "p" + parts[0] + "@0";
            if (!word.equals("z")) others.append(" ").append(parts[0]).append("=").append(word);
        }
        for (int i = 0; i < words.length; ++i) {
            if (!parameters[i].endsWith(":block") || given[i] == null) continue;
            String name = parameters[i].split(":")[0];
            if (written == null) written = "p" + name + "@0";
            others.append(" ").append(name).append("=t").append(HEX.formatHex((byte[]) given[i]));
        }
        return (first != null ? first : written != null ? written : "v") + others;
    }

    private static String answerTo(String line) throws Throwable {
        String[] words = line.split(" ");
        String[] arguments = Arrays.copyOfRange(words, 2, words.length);
        try {
            if (words[0].equals("call")) return exactCall(words[1], arguments);
            if (words[0].equals("friendly")) return friendlyCall(words[1], arguments);
        } catch (InvocationTargetException error) {
            throw error.getCause();
        }
        String path = new String(HEX.parseHex(words[1]), StandardCharsets.UTF_8);
        int failed = NativeLibrary.getInstance("c").getFunction("chdir").invokeInt(new Object[] {path}); // Java has none
        return failed == 0 ? "ok" : "!cannot enter " + path;
    }

    public static void main(String[] arguments) throws IOException {
        for (String line : Files.readAllLines(Path.of(arguments[0]))) {
            ENTRIES.put(line.substring(0, line.indexOf(';')), line.split(";", -1));
        }
        PrintStream out = System.out;
        BufferedReader in = new BufferedReader(new InputStreamReader(System.in, StandardCharsets.US_ASCII));
        for (String line = in.readLine(); line != null; line = in.readLine()) {
            String answer;
            try {
                answer = answerTo(line);
            } catch (Throwable error) { // whatever it is, the row shows it
                answer = ("!" + error).replace('\n', ' ');
            }
            out.print(answer + "\n");
            out.flush();
        }
    }
}
