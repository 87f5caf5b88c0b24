"""C#: `Exact.cs` with every exported name, `Vexlor.cs` with the friendly functions, `Constants.cs`."""
import re
import textwrap
from xml.sax.saxutils import escape

from kinds import ARGUMENTS
from languages import model

HEAD = "// Made from the export table.\n{using}\nnamespace Vexlor32\n{{\n"
# Of an argument's C type: its letter in the name of a delegate, how the delegate declares it, how Exact does, and its check.
EXACT = {"int32_t": ("i", "int", "int", "{}"), "uint32_t": ("u", "uint", "uint", "{}"), "const char *": ("t", "byte[]", "byte[]", "Native.Text({})"),
         "char *": ("b", "[In, Out] byte[]", "byte[]", "{}"), "int32_t *": ("n", "[In, Out] int[]", "int[]", "Native.Number({})"),
         "const void *": ("p", "IntPtr", "byte[]", "{}"), "void *": ("p", "IntPtr", "byte[]", "{}")}
EXACT_RESULTS = {"int32_t": ("Int", "int"), "uint32_t": ("Uint", "uint"), "void": ("Nothing", "void")}
TYPES = {"number": "int", "unsigned": "uint", "bool": "bool", "char": "int", "pos": "int", "offset": "int?", "text": "string",
         "Table": "Table", "File": "VexlorFile"}
# A file is none of System.IO's.
CLASSES = {"Table": ("Table", "uint", 0, "A dBASE-format table"), "File": ("VexlorFile", "int", -1, "A file")}
FORMULAS = model.Formulas(number="{{{name}}}", length="Texts.Size({name}_)", host="Texts.HostRoom()", divide="{0} / {1}",
                          call="Math.{function}({0}, {1})", literal="{0}L")
KEYWORDS = {"base", "checked", "in", "out", "params", "ref", "string", "this", "lock", "object", "event", "char"}


def identifier(name):
    return "@" + name if name in KEYWORDS else name


def capital(name):
    return name[0].upper() + name[1:]


def function_name(function):
    """The entry's main name, as methods begin: _str2blob -> Str2blob; without the prefix where it is a method of an object."""
    return capital(function.name)


def xml(indent, tag, words, attributes=""):
    lines = textwrap.wrap(f"<{tag}{attributes}>{escape(words)}</{tag}>", 118, break_long_words=False, break_on_hyphens=False)
    return [f"{indent}/// {line}" for line in lines]


def is_block(argument):
    return EXACT[argument.ctype][0] == "p"


def signature(entry):
    """The name of the entry's delegate, and its result's type."""
    result, result_type = EXACT_RESULTS.get(entry.result_type, ("Pointer", "IntPtr"))
    return result + "_" + "".join(EXACT[a.ctype][0] for a in entry.arguments), result_type


def checked(argument):
    name = identifier(argument.name)
    return f"Native.Text({name})" if argument.kind == "edit" else EXACT[argument.ctype][3].format(name)


def exact_definition(entry, name):
    """The name's function, and the delegate that it keeps; blocks are given as arrays or as addresses."""
    delegate, result = signature(entry)
    by_address = ", ".join(f"{'IntPtr' if is_block(a) else EXACT[a.ctype][2]} {identifier(a.name)}" for a in entry.arguments)
    as_arrays = ", ".join(f"{EXACT[a.ctype][2]} {identifier(a.name)}" for a in entry.arguments)
    passed = ", ".join(checked(a) for a in entry.arguments)
    pinned = ", ".join(f"{a.name}_.Pointer" if is_block(a) else identifier(a.name) for a in entry.arguments)
    returns = "" if result == "void" else "return "
    about = xml("        ", "summary", model.summary(entry) if name == entry.main else f"Another name of {entry.main}.")
    lines = [*about, f"        public static {result} {name}({by_address})", "        {",
             f'            {returns}(_at_{name} ?? (_at_{name} = Native.Bind<{delegate}>("{name}")))({passed});', "        }"]
    if as_arrays != by_address:
        lines += [*about, f"        public static {result} {name}({as_arrays})", "        {",
                  *(f"            using (var {a.name}_ = new Pinned({identifier(a.name)}))" for a in entry.arguments if is_block(a)),
                  f"                {returns}{name}({pinned});", "        }"]
    return lines + [f"        static {delegate} _at_{name};", ""]


def exact(families):
    delegates, lines = {}, []
    for family in families:
        for entry in family.entries:
            delegate, result = signature(entry)
            parameters = ", ".join(f"{EXACT[a.ctype][1]} {chr(ord('a') + i)}" for i, a in enumerate(entry.arguments))
            delegates[delegate] = f"{result} {delegate}({parameters});"
            for name in entry.names:
                lines += exact_definition(entry, name)
    head = ["    // Signatures: the result, and a letter for each argument.",
            *("    [UnmanagedFunctionPointer(CallingConvention.Winapi)]\n    internal delegate " + delegates[k] for k in sorted(delegates)), "",
            "    /// <summary>Every exported function as it is, by each of its names. Texts are bytes that end with NUL; null is NULL.</summary>",
            "    /// <remarks>An address that comes back means something while the array that it lies in is pinned; read the array instead.</remarks>",
            "    public static class Exact", "    {"]
    return HEAD.format(using="using System;\nusing System.Runtime.InteropServices;\n") + "\n".join(head + lines[:-1] + ["    }", "}", ""])


def parameter_type(p):
    if p.type_name:
        return CLASSES[p.type_name][0]
    if p.is_text:
        return "string"
    if p.is_memory:
        return "byte[]"
    return {"char": "Code", "uint": "uint"}.get(p.kind, "int")


def result_type(function):
    types = [TYPES[o.kind] for o in function.outputs]
    if len(types) < 2:
        return types[0] if types else "void"
    return "(" + ", ".join(f"{t} {capital(o.name)}" for t, o in zip(types, function.outputs)) + ")"


def comment(function):
    lines = xml("        ", "summary", function.summary)
    for p in function.parameters[1 if function.owner else 0:]:
        lines += xml("        ", "param", p.words, f' name="{p.name}"')
    if function.outputs:
        lines += xml("        ", "returns", "; ".join(o.words for o in function.outputs))
    if function.entry.examples:
        lines += ["        /// <example><code>", *(f"        /// {escape(e)}" for e in function.entry.examples), "        /// </code></example>"]
    return lines


def room(function, argument):
    if not argument.room:
        return "0"
    formula = FORMULAS.room(argument.room).replace("Math.max", "Math.Max").replace("Math.min", "Math.Min")
    return re.sub(r"\{(\w+)\}", lambda m: "(long)" + identifier(m[1]), formula)


def prepared(function):
    """Declarations of what is handed over, and of what is pinned for the time of the call."""
    texts, rooms, pins = [], [], []
    for a in function.entry.arguments:
        name = identifier(a.name)
        if a.kind == "str":
            texts.append(f"byte[] {a.name}_ = Texts.Encoded({name});")
        elif a.kind == "edit":
            texts.append(f"byte[] {a.name}_ = Texts.Encoded({name});")
            rooms.append(f"{a.name}_ = Texts.Editable({a.name}_, {room(function, a)});")
        elif a.kind == "dest":
            rooms.append(f"byte[] {a.name}_ = Texts.Destination({room(function, a)});")
        elif a.kind == "out":
            rooms.append(f"int[] {a.name}_ = new int[1];")
        elif a.kind in ("bytes", "block"):
            pins.append(f"using (Pinned {a.name}_ = Texts.Within({name}, {room(function, a)}{', ' + identifier(a.before) if a.before else ''}))")
        if any(o.kind == "offset" and o.place == a.name for o in function.outputs) and a.kind not in ("bytes", "block"):
            pins.append(f"using (Pinned {a.name}At = new Pinned({a.name}_))")
    return texts + rooms, pins


def passed(function, a):
    name = identifier(a.name)
    if ARGUMENTS[a.kind].ignored:
        return "0"
    if a.kind in model.OBJECTS:
        own = function.is_self(a)
        return "Number" if own else f"{name}.Number"
    if a.kind == "pos" and function.entry.base == 1:
        return f"checked({name} + 1)"
    if a.kind in ("bytes", "block"):
        return f"{a.name}_.Pointer"
    return f"{a.name}_" if ARGUMENTS[a.kind].is_pointer else name


def returned(function, o):
    entry = function.entry
    if o.name != "result":
        text = f"{o.name}_[0]" if entry.argument(o.name).kind == "out" else f"Texts.Decoded({o.name}_)"
        return f"result == IntPtr.Zero ? null : {text}" if o.name == function.nullable else text
    if o.kind == "offset":
        return f"{o.place}{'_' if entry.argument(o.place).kind == 'block' else 'At'}.Offset(result)"
    if o.kind in CLASSES:
        name, _, none, _ = CLASSES[o.kind]
        return f"result == {none} ? null : new {name}(result)"
    if o.kind == "pos" and entry.base == 1:
        return "result - 1"
    return {"bool": "result != 0", "text": "Texts.At(result)"}.get(o.kind, "result")


def definition(function):
    name = function_name(function)
    parameters = function.parameters[1:] if function.owner else function.parameters
    declared = ", ".join(f"{parameter_type(p)} {identifier(p.name)}" for p in parameters)
    first, pins = prepared(function)
    outputs = [returned(function, o) for o in function.outputs]
    uses = any(re.search(r"\bresult\b", o) for o in outputs)
    body = [f"{'var result = ' if uses else ''}Exact.{function.entry.main}({', '.join(passed(function, a) for a in function.entry.arguments)});"]
    if function.owner and name == "Close":
        body.append("Forget();")
    if outputs:
        body.append(f"return {outputs[0] if len(outputs) == 1 else '(' + ', '.join(outputs) + ')'};")
    if pins:
        body = [*pins, "{", *("    " + line for line in body), "}"]
    lines = [f"        public {'' if function.owner else 'static '}{result_type(function)} {name}({declared})", "        {"]
    return comment(function) + lines + ["            " + line for line in first + body] + ["        }", ""]


def friendly(families):
    members = {"Table": [], "File": [], "": []}
    names = set()
    for _, functions in model.functions(families):
        for f in functions:
            key = (f.owner, function_name(f))
            assert key not in names, f"{f.entry.main}: {key} is there already"
            names.add(key)
            members[f.owner] += definition(f)
    lines = []
    for owner, (name, number, none, what) in CLASSES.items():
        lines += [f"    /// <summary>{what} that is open; closed at the end of a using block.</summary>",
                  f"    public sealed class {name} : Handle", "    {",
                  f"        internal {name}({number} handle) : base(handle, {none}) {{ }}", "",
                  "        /// <summary>The number by which the library knows it.</summary>",
                  f"        public {number} Number {{ get {{ return ({number})Opened; }} }}", "",
                  "        internal override void End()", "        {", "            Close();", "        }", "", *members[owner][:-1], "    }", ""]
    lines += ["    /// <summary>The functions with strings. A failure shows in the result; FError() gives the reason of the last one.</summary>",
              "    /// <remarks>Positions begin with 0, and one that does not exist is -1. null is NULL, as an argument and as a result.</remarks>",
              "    public static class Functions", "    {", *members[""][:-1], "    }", "}", ""]
    return HEAD.format(using="using System;\n") + "\n".join(lines)


def constants(groups):
    lines = ["    /// <summary>Modes, flags and error numbers.</summary>", "    public static class Constants", "    {"]
    for group in groups:
        for c in group.constants:
            lines += xml("        ", "summary", c.meaning) + [f"        public const int {c.name} = {c.expression};"]
    return HEAD.format(using="") + "\n".join(lines + ["    }", "}", ""])


def entries(families):
    """For tests: what each entry is among the friendly functions."""
    lines = ["// Made from the export table: name, class, number of outputs.", "using System.Collections.Generic;", "",
             "static class Entries", "{", "    internal static readonly Dictionary<string, string[]> All = new Dictionary<string, string[]>", "    {"]
    for _, functions in model.functions(families):
        for f in functions:
            lines.append(f'        {{"{f.entry.main}", new[] {{"{function_name(f)}", "{f.owner}", "{len(f.outputs)}"}}}},')
    return "\n".join(lines + ["    };", "}", ""])


def products(families, groups, clashes):
    return {"csharp/Exact.cs": exact(families), "csharp/Vexlor.cs": friendly(families), "csharp/Constants.cs": constants(groups),
            "tests/csharp_entries.cs": entries(families)}
