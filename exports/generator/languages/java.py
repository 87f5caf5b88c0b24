"""Java, through JNA: `Exact` with every exported name, and the friendly classes Vexlor32, Table and VexlorFile."""
import re
import textwrap

from kinds import ARGUMENTS
from languages import model

PACKAGE = "java/src/vexlor32/"
HEAD = "// SPDX-License-Identifier: MIT\n// Made from the export table.\npackage vexlor32;\n"
# Of the exact functions: the type in calls with arrays, that in calls with addresses, and the check.
EXACT = {"int32_t": ("int", "int", "{}"), "uint32_t": ("long", "long", "Calls.unsigned({})"), "const char *": ("byte[]", "Pointer", "Calls.text({})"),
         "char *": ("byte[]", "Pointer", "{}"), "int32_t *": ("int[]", "Pointer", "Calls.room({})"),
         "const void *": ("byte[]", "Pointer", "{}"), "void *": ("byte[]", "Pointer", "{}")}
EXACT_RESULTS = {"int32_t": ("int", "number"), "uint32_t": ("long", "unsigned"), "void": ("void", "none")}
TYPES = {"number": "int", "unsigned": "long", "bool": "boolean", "char": "int", "pos": "int", "offset": "Integer", "text": "String",
         "Table": "Table", "File": "VexlorFile"}
CLASSES = {"": "Vexlor32", "Table": "Table", "File": "VexlorFile"}
FORMULAS = model.Formulas(number="(long) {name}", length="Texts.size({name}_)", host="Texts.hostRoom()", divide="{0} / {1}",
                          call="Math.{function}({0}, {1})", literal="{0}L")
KEYWORDS = {"goto", "char", "int", "double", "float", "short", "long", "byte", "new", "default", "switch", "case", "final", "native",
            "package", "class", "this", "if", "else", "do", "for", "while", "return", "static", "void", "boolean", "const"}


def identifier(name):
    return name + "_" if name in KEYWORDS else name


def function_name(function):
    if is_close(function):
        return "tryClose"  # close() belongs to AutoCloseable, and gives nothing back
    words = function.words
    return identifier(words[0] + "".join(w.capitalize() for w in words[1:]))


def is_close(function):
    return function.entry.main in ("DbfClose", "FClose")


def exact(families):
    lines = [HEAD, "import com.sun.jna.Pointer;", "",
             "/**", " * Every exported name, with its exact types. Memory is an array of bytes, which the call sees as a copy of its own, or an address;",
             " * unsigned numbers are long. An address that is a result points into memory given by address, or into none that can still be read.", " */",
             "public final class Exact {", "    private Exact() {}"]
    for family in families:
        lines += ["", f"    // {family.title}"]
        for e in family.entries:
            result, call = EXACT_RESULTS.get(e.result_type.strip(), ("Pointer", "pointer"))
            for form in (0, 1) if any(a.of_kind.is_pointer for a in e.arguments) else (0,):
                declared = ", ".join(f"{EXACT[a.ctype][form]} {identifier(a.name)}" for a in e.arguments)
                checks = [EXACT["const char *"][2] if a.kind == "edit" else EXACT[a.ctype][2] for a in e.arguments]
                passed = "".join(f", {check.format(identifier(a.name))}" for a, check in zip(e.arguments, checks))
                lines += [f'    public static {result} {n}({declared}) {{ {"" if result == "void" else "return "}Calls.{call}("{n}"{passed}); }}'
                          for n in e.names]
    return "\n".join(lines + ["}", ""])


def plain(words):
    """As it stands in a comment of javadoc."""
    for character, shown in (("&", "&amp;"), ("<", "&lt;"), (">", "&gt;"), ("@", "&#64;"), ("\\", "&#92;"), ("*/", "*&#47;"), ("{", "&#123;")):
        words = words.replace(character, shown)
    return words


def result_class(function):
    name = function_name(function)
    return name[0].upper() + name[1:] + "Result"


def result_type(function):
    types = [TYPES[o.kind] for o in function.outputs]
    return "void" if not types else types[0] if len(types) == 1 else result_class(function)


def record(function):
    lines = [f"    /** What {function_name(function)} gives.", "     *"]
    for o in function.outputs:
        lines += textwrap.wrap(f"@param {identifier(o.name)} {plain(o.words)}", 110, initial_indent="     * ", subsequent_indent="     *     ")
    parts = ", ".join(f"{TYPES[o.kind]} {identifier(o.name)}" for o in function.outputs)
    return lines + ["     */", f"    public record {result_class(function)}({parts}) {{}}", ""]


def comment(function):
    entry = function.entry
    lines = textwrap.wrap(plain(function.summary), 110)
    for paragraph in entry.notes.split("\n\n"):
        if paragraph:
            lines += textwrap.wrap("<p>" + plain(model.one_line(paragraph)), 110)
    if entry.examples:
        lines += ["<p>Examples, as vexlor writes calls:", "<pre>", *(plain(e) for e in entry.examples), "</pre>"]
    lines.append("")
    for p in function.parameters[1 if function.owner else 0:]:
        lines += textwrap.wrap(f"@param {identifier(p.name)} {plain(p.words)}", 110, subsequent_indent="    ")
    if function.outputs:
        lines += textwrap.wrap("@return " + "; ".join(plain(o.words) for o in function.outputs), 110, subsequent_indent="    ")
    while not lines[-1]:
        lines.pop()
    return ["    /**", *(f"     * {line}".rstrip() for line in lines), "     */"]


def by_address(function):
    """Whether the memory of the call must keep its address: a place in it is the result, or it is the caller's block."""
    return any(a.kind == "block" or a.before for a in function.entry.arguments) or any(o.kind == "offset" for o in function.outputs)


def prepared(function):
    entry = function.entry
    memory = by_address(function)
    declared, keep = ("Memory", "Texts.memory({})") if memory else ("byte[]", "{}")

    def room(a):
        text = FORMULAS.room(a.room)
        for other in entry.arguments:
            cast = "" if ARGUMENTS[other.kind].is_unsigned else "(long) "
            text = re.sub(rf"\(long\) {other.name}(?!\w)", cast + identifier(other.name), text)
        return text

    first, then = [], []
    for a in entry.arguments:
        name = identifier(a.name)
        if a.kind in ("str", "edit"):
            assert a.kind == "str" or a.room is None, f"{entry.main}: an edited text with a room"
            first.append(f"{declared} {a.name}_ = {keep.format(f'Texts.encoded({name})')};")
        elif a.kind == "dest":
            then.append(f"{declared} {a.name}_ = {keep.format(f'Texts.destination({room(a)})')};")
        elif a.kind == "out":
            then.append(f"Memory {a.name}_ = new Memory(4);" if memory else f"int[] {a.name}_ = new int[1];")
        elif a.kind in ("bytes", "block"):
            checked = f"Texts.checked({name}, {room(a) if a.room else '0'}, {identifier(a.before) if a.before else '0'})"
            then.append(f"{declared} {a.name}_ = {keep.format(checked)};")
    return first + then


def passed(function, a):
    name = identifier(a.name)
    if ARGUMENTS[a.kind].ignored:
        return "0"
    if a.kind in model.OBJECTS:
        own = function.is_self(a)
        return f"{'(int) ' if a.kind == 'handle' else ''}{'' if own else name + '.'}handle()"
    if a.kind == "pos" and function.entry.base == 1:
        return f"Math.addExact({name}, 1)"
    if a.before:
        return f"Texts.at({a.name}_, {identifier(a.before)})"
    return name if ARGUMENTS[a.kind].is_number else a.name + "_"


def returned(function, o):
    entry = function.entry
    if o.name != "result":
        if next(a.kind for a in entry.arguments if a.name == o.name) == "out":
            return f"{o.name}_.getInt(0)" if by_address(function) else f"{o.name}_[0]"
        return f"{'result == null ? null : ' if o.name == function.nullable else ''}Texts.decoded({o.name}_)"
    return {"bool": "result != 0", "text": "Texts.decoded(result)", "offset": f"Texts.offset({o.place}_, result)", "Table": "Table.of(result)",
            "File": "VexlorFile.of(result)"}.get(o.kind, "result - 1" if o.kind == "pos" and entry.base == 1 else "result")


def definition(function):
    entry = function.entry
    parameters = function.parameters[1:] if function.owner else function.parameters
    types = {p.name: CLASSES[p.type_name] if p.type_name else "String" if p.is_text else "byte[]" if p.is_memory
             else "long" if p.kind == "uint" else "int" for p in parameters}
    declared = ", ".join(f"{types[p.name]} {identifier(p.name)}" for p in parameters)
    lines = record(function) if len(function.outputs) > 1 else []
    lines += comment(function)
    lines.append(f"    public {'' if function.owner else 'static '}{result_type(function)} {function_name(function)}({declared}) {{")
    outputs = [returned(function, o) for o in function.outputs]
    call = f"Exact.{entry.main}({', '.join(passed(function, a) for a in entry.arguments)});"
    result = EXACT_RESULTS.get(entry.result_type.strip(), ("Pointer",))[0]
    body = prepared(function) + [f"{result} result = {call}" if any("result" in o for o in outputs) else call]
    body += [f"Texts.copyBack({a.name}_, {identifier(a.name)});" for a in entry.arguments if a.kind == "block"]
    if is_close(function):
        body.append("if (result == 0) forget();" if function.owner == "Table" else "forget();")
    if outputs:
        body.append(f"return {outputs[0]};" if len(outputs) == 1 else f"return new {result_class(function)}({', '.join(outputs)});")
    return lines + [f"        {line}" for line in body] + ["    }", ""]


def class_start(owner):
    if not owner:
        return ["/**", " * The functions of the library, with String.", " *",
                " * <p>A failure shows in the result, null where there is no table, file or text; fError() gives the reason of the last one. Positions",
                " * begin with 0, and one that does not exist is -1.", " */", "public final class Vexlor32 {", "    private Vexlor32() {}", ""]
    name, what, none, cast = {"Table": ("Table", "A dBASE-format table", 0, "long"), "File": ("VexlorFile", "A file", -1, "int")}[owner]
    return [f"/** {what} that is open. */", f"public final class {name} extends Handle {{",
            f"    private {name}({cast} handle) {{ super(handle, {none}); }}", "",
            f"    static {name} of({cast} handle) {{ return handle == {none} ? null : new {name}(handle); }}", "",
            "    @Override", "    void end() { tryClose(); }", ""]


def friendly(families):
    code = {owner: [] for owner in CLASSES}
    entries = []
    for _, functions in model.functions(families, first=0):
        for f in functions:
            code[f.owner] += definition(f)
            entries.append(f"{f.entry.main};{CLASSES[f.owner]};{function_name(f)};{','.join(o.name for o in f.outputs)}")
    products = {}
    for owner, name in CLASSES.items():
        imports = [f"import com.sun.jna.{c};" for c in ("Memory", "Pointer") if any(re.search(rf"\b{c} \w+ =", line) for line in code[owner])]
        products[f"{PACKAGE}{name}.java"] = "\n".join([HEAD, *imports, ""] + class_start(owner) + code[owner][:-1] + ["}", ""])
    return products | {"tests/java_entries.txt": "\n".join(entries) + "\n"}


def constants(groups):
    lines = [HEAD, "/** Modes, flags and error numbers, by name. */", "public final class Constants {", "    private Constants() {}"]
    for g in groups:
        lines += ["", f"    // {g.title}: {model.one_line(g.does)}"]
        for c in g.constants:
            lines += [f"    /** {plain(c.meaning)}. */", f"    public static final int {c.name} = {c.expression};"]
    return "\n".join(lines + ["}", ""])


def products(families, groups, clashes):
    return {PACKAGE + "Exact.java": exact(families), PACKAGE + "Constants.java": constants(groups)} | friendly(families)
