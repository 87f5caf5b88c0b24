// Makes the calls of the conformance library (conformance.h) through the C# declarations.
using System;
using System.Collections.Generic;
using System.Linq;
using System.Reflection;
using System.Runtime.InteropServices;
using System.Text;
using Vexlor32;

static class Caller
{
    const string Core = "vexlor_conformance";
    delegate void Call([MarshalAs(UnmanagedType.LPStr)] string name, int count);
    [DllImport(Core)] static extern int vxc_run(int traits, [MarshalAs(UnmanagedType.LPStr)] string errors, Call call);
    [DllImport(Core)] static extern int vxc_is_friendly();
    [DllImport(Core)] static extern int vxc_kind(int i);
    [DllImport(Core)] static extern long vxc_number(int i);
    [DllImport(Core)] static extern long vxc_size(int i);
    [DllImport(Core)] static extern long vxc_offset(int i);
    [DllImport(Core)] static extern IntPtr vxc_pointer(int i);
    [DllImport(Core)] static extern void vxc_lend(int i, IntPtr place);
    [DllImport(Core)] static extern void vxc_gave_number(long number);
    [DllImport(Core)] static extern void vxc_gave_place(IntPtr place);
    [DllImport(Core)] static extern void vxc_gave_text(byte[] text, long size);
    [DllImport(Core)] static extern void vxc_gave_null();
    [DllImport(Core)] static extern void vxc_refused([MarshalAs(UnmanagedType.LPStr)] string words);

    static readonly Encoding Latin1 = Encoding.GetEncoding(28591);
    static readonly Dictionary<string, object> opened = new Dictionary<string, object>();
    static readonly ILookup<string, MethodInfo> exact = typeof(Exact).GetMethods().ToLookup(m => m.Name);
    static readonly List<GCHandle> pins = new List<GCHandle>();  // of the last call

    static object Number(int i, Type type)
    {
        long number = vxc_number(i);
        return type == typeof(uint) ? (object)checked((uint)number) : type == typeof(Code) ? (object)(Code)(int)number : checked((int)number);
    }

    // Arrays are pinned, so that addresses in them can be told.
    static Array Lent(int i, Array memory)
    {
        pins.Add(GCHandle.Alloc(memory, GCHandleType.Pinned));
        vxc_lend(i, pins.Last().AddrOfPinnedObject());
        return memory;
    }

    static object ExactArgument(int i, Type type, object[] given)
    {
        if (vxc_kind(i) == 'n') return Number(i, type);
        if (type == typeof(IntPtr)) return vxc_pointer(i);
        if (vxc_kind(i) == 'z') return null;
        if (vxc_kind(i) == '=') return given[vxc_number(i)];
        return Lent(i, type == typeof(int[]) ? new int[1] : (Array)new byte[vxc_size(i)]);
    }

    // Memory goes as an address where the pointer points inside it.
    static void ExactCall(string name, int count)
    {
        int[] places = Enumerable.Range(0, count).ToArray();
        Type block = places.Any(i => vxc_kind(i) == 'm' && vxc_offset(i) != 0) ? typeof(IntPtr) : typeof(byte[]);
        MethodInfo function = exact[name].First(m => m.GetParameters().Any(p => p.ParameterType == block) || exact[name].Count() == 1);
        ParameterInfo[] parameters = function.GetParameters();
        object[] given = new object[count];
        foreach (int i in places) given[i] = ExactArgument(i, parameters[i].ParameterType, given);
        object result = function.Invoke(null, given);
        if (function.ReturnType == typeof(IntPtr)) vxc_gave_place((IntPtr)result);
        else if (function.ReturnType != typeof(void)) vxc_gave_number(Convert.ToInt64(result));
    }

    static object FriendlyArgument(int i, Type type)
    {
        char kind = (char)vxc_kind(i);
        if (kind == 'T' || kind == 'F') return opened[kind + "" + vxc_number(i)];
        if (kind == 'n') return Number(i, type);
        if (kind == 'z') return null;
        byte[] bytes = (byte[])Lent(i, new byte[vxc_size(i)]);
        return kind == 't' ? Latin1.GetString(bytes) : kind == 'u' ? Encoding.UTF8.GetString(bytes) : (object)bytes;
    }

    static void Give(object value)
    {
        byte[] bytes = value as byte[] ?? (value is string ? Latin1.GetBytes((string)value) : null);
        if (value is Handle)
        {
            object number = value.GetType().GetProperty("Number").GetValue(value);
            opened[(value is Table ? "T" : "F") + number] = value;
            Give(number);
        }
        else if (bytes != null) vxc_gave_text(bytes, bytes.Length);
        else if (value != null) vxc_gave_number(Convert.ToInt64(value));
        else vxc_gave_null();
    }

    static void FriendlyCall(string main, int count)
    {
        string[] entry = Entries.All[main];
        int outputs = int.Parse(entry[2]);
        int own = entry[1] == "" ? 0 : 1;
        Type type = own == 0 ? typeof(Functions) : entry[1] == "Table" ? typeof(Table) : typeof(VexlorFile);
        MethodInfo method = type.GetMethod(entry[0]);
        Type[] types = method.GetParameters().Select(p => p.ParameterType).ToArray();
        object[] given = Enumerable.Range(0, count).Select(i => FriendlyArgument(i, i < own ? type : types[i - own])).ToArray();
        object value = method.Invoke(own == 0 ? null : given[0], given.Skip(own).ToArray());
        if (outputs == 1) Give(value);
        for (int i = 1; outputs > 1 && i <= outputs; ++i) Give(value.GetType().GetField("Item" + i).GetValue(value));
        for (int i = 0; i < count; ++i)
            if (vxc_kind(i) == 'B') Give(given[i]);
    }

    static void Make(string name, int count)
    {
        foreach (GCHandle pin in pins) pin.Free();
        pins.Clear();
        try
        {
            if (vxc_is_friendly() != 0) FriendlyCall(name, count);
            else ExactCall(name, count);
        }
        catch (Exception error)  // whatever it is, the row shows it
        {
            vxc_refused((error.InnerException ?? error).ToString());
        }
    }

    static bool Refused<Error>(Action act) where Error : Exception
    {
        try { act(); }
        catch (Error) { return true; }
        Console.Error.WriteLine("an " + typeof(Error) + " is missing");
        return false;
    }

    static int Main()
    {
        // What only this language has: an encoding that is a property, characters of 16 bits, arrays of numbers.
        if (!Refused<ArgumentException>(() => Texts.Encoding = Encoding.UTF8)) return 1;
        if (!Refused<EncoderFallbackException>(() => Functions.StrnSet('\u4e00', 3))) return 1;
        if (!Refused<ArgumentException>(() => Exact.DosGetDate(new int[0], null, null))) return 1;
        return vxc_run(2 + 4, "ArgumentException|EncoderFallbackException|ObjectDisposedException", Make);
    }
}
