// Makes the calls of vexlor_conformance through the C# declarations; caller_process.h has the protocol.
using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Reflection;
using System.Runtime.InteropServices;
using System.Text;
using Vexlor32;

static class Caller
{
    static readonly Encoding Latin1 = Encoding.GetEncoding(28591);
    static readonly Dictionary<string, object> opened = new Dictionary<string, object>();
    static readonly ILookup<string, MethodInfo> exact = typeof(Exact).GetMethods().ToLookup(m => m.Name);

    static byte[] Bytes(string digits)
    {
        byte[] bytes = new byte[digits.Length / 2];
        for (int i = 0; i < digits.Length; ++i)
            bytes[i / 2] = (byte)(16 * bytes[i / 2] + digits[i] - (digits[i] < 'a' ? '0' : 'a' - 10));
        return bytes;
    }

    static string Hex(byte[] bytes)
    {
        char[] digits = new char[2 * bytes.Length];
        for (int i = 0; i < digits.Length; ++i)
            digits[i] = "0123456789abcdef"[i % 2 == 0 ? bytes[i / 2] >> 4 : bytes[i / 2] & 15];
        return new string(digits);
    }

    static object Number(string word, Type type, int less = 0)
    {
        long number = long.Parse(word.Substring(1)) - less;
        return type == typeof(uint) ? (object)checked((uint)number) : type == typeof(Code) ? (object)(Code)(int)number : checked((int)number);
    }

    // Memory is pinned, so that addresses in it can be told; it goes as an address where it begins inside an array.
    static string ExactCall(string name, string[] words)
    {
        bool byAddress = words.Any(w => w[0] == 'm' && !w.EndsWith("@0"));
        Type block = byAddress ? typeof(IntPtr) : typeof(byte[]);
        MethodInfo function = exact[name].First(m => m.GetParameters().Any(p => p.ParameterType == block) || exact[name].Count() == 1);
        ParameterInfo[] parameters = function.GetParameters();
        object[] given = new object[words.Length];
        var memories = new Dictionary<int, Array>();
        var pins = new Dictionary<int, GCHandle>();
        for (int i = 0; i < words.Length; ++i)
        {
            Type type = parameters[i].ParameterType;
            if (words[i][0] == 'n') given[i] = Number(words[i], type);
            if (words[i][0] == 'z') given[i] = type == typeof(IntPtr) ? (object)IntPtr.Zero : null;
            if (words[i][0] == '=') given[i] = given[int.Parse(words[i].Substring(1).Split('@')[0])];
            if (words[i][0] != 'm') continue;
            string[] parts = words[i].Substring(1).Split('@');
            byte[] bytes = Bytes(parts[0]);
            memories[i] = type == typeof(int[]) ? new[] { BitConverter.ToInt32(bytes, 0) } : (Array)bytes;
            pins[i] = GCHandle.Alloc(memories[i], GCHandleType.Pinned);
            given[i] = type == typeof(IntPtr) ? (object)IntPtr.Add(pins[i].AddrOfPinnedObject(), int.Parse(parts[1])) : memories[i];
        }
        object result = function.Invoke(null, given);
        string answer = Shown(result, function.ReturnType, memories, pins);
        foreach (Array memory in memories.Values)
            answer += " m" + Hex(memory as byte[] ?? BitConverter.GetBytes(((int[])memory)[0]));
        foreach (GCHandle pin in pins.Values) pin.Free();
        return answer;
    }

    static string Shown(object result, Type type, Dictionary<int, Array> memories, Dictionary<int, GCHandle> pins)
    {
        if (type == typeof(void)) return "v";
        if (type != typeof(IntPtr)) return "n" + result;
        if ((IntPtr)result == IntPtr.Zero) return "z";
        // The end of one may be the beginning of another.
        foreach (int beyond in new[] { 0, 1 })
            foreach (int i in memories.Keys)
            {
                long offset = ((IntPtr)result).ToInt64() - pins[i].AddrOfPinnedObject().ToInt64();
                if (offset >= 0 && offset < memories[i].Length + beyond) return "p" + i + "@" + offset;
            }
        return "t" + Hex(Latin1.GetBytes(Marshal.PtrToStringAnsi((IntPtr)result)));
    }

    static object FriendlyArgument(string word, string kind, Type type, int pos)
    {
        if (kind == "table" || kind == "handle") return opened[kind + word];
        if (word[0] == 'n') return Number(word, type, kind == "pos" ? pos : 0);
        if (word[0] == 'z') return null;
        byte[] bytes = Bytes(word.Substring(1));
        return type == typeof(byte[]) ? (object)bytes : Latin1.GetString(bytes);
    }

    static string FriendlyOutput(object value, string kind, string place, int pos)
    {
        if (kind == "Table" || kind == "File")
        {
            if (value == null) return kind == "Table" ? "n0" : "n-1";
            string word = "n" + value.GetType().GetProperty("Number").GetValue(value);
            opened[(kind == "Table" ? "table" : "handle") + word] = value;
            return word;
        }
        if (value == null) return "z";
        if (kind == "text") return "t" + Hex(Latin1.GetBytes((string)value));
        if (kind == "offset") return "p" + place + "@" + value;
        return "n" + (Convert.ToInt64(value) + (kind == "pos" ? pos : 0));
    }

    static string FriendlyCall(string main, string[] words)
    {
        string[] entry = Entries.All[main];
        int pos = entry[2] == "1" ? 1 : 0;
        string[][] parameters = entry[3].Split(new[] { ' ' }, StringSplitOptions.RemoveEmptyEntries).Select(p => p.Split(':')).ToArray();
        string[][] outputs = entry[4].Split(new[] { ' ' }, StringSplitOptions.RemoveEmptyEntries).Select(o => o.Split(':')).ToArray();
        int own = entry[1] == "" ? 0 : 1;
        Type type = own == 0 ? typeof(Functions) : entry[1] == "Table" ? typeof(Table) : typeof(VexlorFile);
        MethodInfo method = type.GetMethod(entry[0]);
        Type[] types = method.GetParameters().Select(p => p.ParameterType).ToArray();
        object[] given = words.Select((w, i) => FriendlyArgument(w, parameters[i][1], i < own ? type : types[i - own], pos)).ToArray();
        object value = method.Invoke(own == 0 ? null : given[0], given.Skip(own).ToArray());
        Func<int, object> item = i => value.GetType().GetField("Item" + (i + 1)).GetValue(value);
        object[] values = outputs.Length < 2 ? new[] { value } : outputs.Select((_, i) => item(i)).ToArray();
        var gave = outputs.Select((o, i) => new[] { o[0], o[1], FriendlyOutput(values[i], o[1], o[2], pos) }).ToList();
        for (int i = 0; i < given.Length; ++i)
            if (parameters[i][1] == "block" && given[i] != null) gave.Add(new[] { parameters[i][0], "text", "t" + Hex((byte[])given[i]) });
        string[] result = gave.Find(g => g[0] == "result");
        string[] written = gave.Find(g => g[0] != "result" && g[1] == "text");
        string answer = result != null ? result[2] : written == null ? "v" : written[2] == "z" ? "z" : "p" + written[0] + "@0";
        return answer + string.Concat(gave.Where(g => g != result && g[2] != "z").Select(g => " " + g[0] + "=" + g[2]));
    }

    static int Main(string[] arguments)
    {
        if (arguments.Length > 0) return Refusals.Run();
        var output = new StreamWriter(Console.OpenStandardOutput()) { AutoFlush = true };
        for (string line; (line = Console.In.ReadLine()) != null;)
        {
            string[] words = line.Split(' ');
            string answer = "ok";
            try
            {
                if (words[0] == "enter") Directory.SetCurrentDirectory(Encoding.UTF8.GetString(Bytes(words[1])));
                else if (words[0] == "call") answer = ExactCall(words[1], words.Skip(2).ToArray());
                else answer = FriendlyCall(words[1], words.Skip(2).ToArray());
            }
            catch (Exception error)  // whatever it is, the row shows it
            {
                answer = "!" + (error.InnerException ?? error).ToString().Replace("\n", " ");
            }
            output.Write(answer + "\n");
        }
        return 0;
    }
}
