"""JavaScript for Node: `exact.js` with every exported name, `index.js` with the friendly functions, types for both."""
import re
import textwrap

from kinds import ARGUMENTS
from languages import model

HEAD = "// Made from the export table.{more}\n'use strict';\n"
EXACT = {"int32_t": "i", "uint32_t": "u", "const char *": "t", "char *": "b", "int32_t *": "n", "const void *": "y", "void *": "b"}
EXACT_RESULTS = {"int32_t": "i", "uint32_t": "u", "void": "v"}
EXACT_TYPES = {"i": "number", "u": "number", "t": "Buffer | null", "b": "Memory | null", "n": "Int32Array | null", "y": "Memory | null"}
TYPES = {"number": "number", "unsigned": "number", "bool": "boolean", "char": "number", "pos": "number", "offset": "number | null",
         "text": "string", "Table": "Table | null", "File": "File | null"}
KEYWORDS = {"delete", "new", "default", "in", "function", "var", "with", "class", "this", "test_"}
FORMULAS = model.Formulas(number="{name}", length="rt.size({name}_)", host="rt.hostRoom()", divide="Math.trunc({0} / {1})",
                          call="Math.{function}({0}, {1})")


def identifier(name):
    return name + "_" if name in KEYWORDS else name


def function_name(function):
    words = function.words
    name = words[0] + "".join(w.capitalize() for w in words[1:])
    return name if function.owner else identifier(name)


def signature(entry):
    return "".join(EXACT[a.ctype] for a in entry.arguments)


def exact(families):
    lines = [HEAD.format(more=" Names of each entry, result, arguments; runtime.js says what the letters mean."),
             "const { bind } = require('./runtime');", "", "module.exports = bind(["]
    for family in families:
        lines.append(f"  // {family.title}")
        lines += [f"  ['{' '.join(e.names)}', '{EXACT_RESULTS.get(e.result_type.strip(), 'p')}', '{signature(e)}']," for e in family.entries]
    return "\n".join(lines + ["]);", ""])


def exact_types(families):
    lines = ["// Made from the export table.", "/** Memory of yours that the library reads or writes. */", "export type Memory = Uint8Array;",
             "/** An address in memory of yours or the library's, or null. */", "export type Pointer = bigint | null;", ""]
    for family in families:
        for e in family.entries:
            result = {"i": "number", "u": "number", "v": "void"}.get(EXACT_RESULTS.get(e.result_type.strip()), "Pointer")
            arguments = ", ".join(f"{identifier(a.name)}: {EXACT_TYPES[EXACT[a.ctype]]}" for a in e.arguments)
            lines += [f"export function {n}({arguments}): {result};" for n in e.names]
    return "\n".join(lines) + "\n"


def parameter_type(p):
    if p.type_name:
        return p.type_name
    if p.is_text:
        return "string | null"
    if p.is_memory:
        return "Uint8Array"
    return "number | string" if p.kind == "char" else "number"


def result_type(function):
    types = [TYPES[o.kind] + (" | null" if o.name == function.nullable or (o.kind == "text" and o.name == "result") else "")
             for o in function.outputs]
    return "void" if not types else types[0] if len(types) == 1 else f"[{', '.join(f'{o.name}: {t}' for o, t in zip(function.outputs, types))}]"


def comment(function, indent):
    lines = textwrap.wrap(function.summary, 110)
    for p in function.parameters[1 if function.owner else 0:]:
        lines += textwrap.wrap(f"@param {identifier(p.name)} {p.words}", 110, subsequent_indent="  ")
    if function.outputs:
        lines += textwrap.wrap("@returns " + "; ".join(o.words for o in function.outputs), 110, subsequent_indent="  ")
    if function.entry.examples:
        lines += ["@example", *("// " + e for e in function.entry.examples)]
    lines = [line.replace("*/", "* /") for line in lines]
    return [f"{indent}/**", *(f"{indent} * {line}".rstrip() for line in lines), f"{indent} */"]


def room(function, argument):
    text = FORMULAS.room(argument.room) if argument.room else "0"
    for a in function.entry.arguments:
        if ARGUMENTS[a.kind].is_number:
            shown = f"{a.name}_" if a.kind == "char" else identifier(a.name)
            text = re.sub(rf"(?<![\w.]){a.name}(?![\w(])", shown, text)
    return text


def prepared(function):
    first, then = [], []
    for a in function.entry.arguments:
        name = identifier(a.name)
        before = f", {identifier(a.before)}" if a.before else ""
        if a.kind == "str":
            first.append(f"const {a.name}_ = rt.encoded({name});")
        elif a.kind == "edit":
            first.append(f"let {a.name}_ = rt.encoded({name});")
            then.append(f"{a.name}_ = rt.editable({a.name}_, {room(function, a)});")
        elif a.kind == "char":
            first.append(f"const {a.name}_ = rt.code({name});")
        elif a.kind == "dest":
            then.append(f"const {a.name}_ = rt.destination({room(function, a)});")
        elif a.kind == "out":
            then.append(f"const {a.name}_ = new Int32Array(1);")
        elif a.kind in ("bytes", "block"):
            then.append(f"const {a.name}_ = rt.within({name}, {room(function, a)}{before});")
    return first + then


def passed(function, a):
    if ARGUMENTS[a.kind].ignored:
        return "0"
    if a.kind in model.OBJECTS:
        own = function.is_self(a)
        return "this.handle" if own else f"{identifier(a.name)}.handle"
    if a.kind == "pos" and function.entry.base == 1:
        return f"{identifier(a.name)} + 1"
    return identifier(a.name) if a.kind in ("int", "uint", "pos") else a.name + "_"


def returned(function, o):
    entry = function.entry
    if o.name != "result":
        kind = next(a.kind for a in entry.arguments if a.name == o.name)
        text = f"{o.name}_[0]" if kind == "out" else f"rt.decoded({o.name}_)"
        return f"result === null ? null : {text}" if o.name == function.nullable else text
    return {"bool": "result !== 0", "text": "rt.textAt(result)", "offset": f"rt.offsetIn({o.place}_, result)", "Table": "Table.of(result)",
            "File": "File.of(result)"}.get(o.kind, "result - 1" if o.kind == "pos" and entry.base == 1 else "result")


def definition(function):
    name = function_name(function)
    indent = "  " if function.owner else ""
    parameters = function.parameters[1:] if function.owner else function.parameters
    lines = [f"{indent}{'' if function.owner else 'function '}{name}({', '.join(identifier(p.name) for p in parameters)}) {{"]
    lines += [f"{indent}  {line}" for line in prepared(function)]
    outputs = [returned(function, o) for o in function.outputs]
    call = f"native.{function.entry.main}({', '.join(passed(function, a) for a in function.entry.arguments)});"
    uses = any("result" in o for o in outputs)
    lines.append(f"{indent}  {'const result = ' if uses else ''}{call}")
    if function.owner and name == "close":
        lines.append(f"{indent}  if ({model.CLOSED[function.owner].replace('==', '===').replace('!=', '!==')}) this.forget(); // what could not be written stays open")
    if outputs:
        lines.append(f"{indent}  return {outputs[0] if len(outputs) == 1 else '[' + ', '.join(outputs) + ']'};")
    return lines + [indent + "}"]


def declared(function):
    indent = "  " if function.owner else ""
    parameters = function.parameters[1:] if function.owner else function.parameters
    arguments = ", ".join(f"{identifier(p.name)}: {parameter_type(p)}" for p in parameters)
    start = "" if function.owner else "export function "
    return comment(function, indent) + [f"{indent}{start}{function_name(function)}({arguments}): {result_type(function)};"]


def friendly(families):
    code, types = {"Table": [], "File": [], "": []}, {"Table": [], "File": [], "": []}
    names, entries = [], []
    for _, functions in model.functions(families):
        for f in functions:
            code[f.owner] += definition(f) + [""]
            types[f.owner] += declared(f)
            name = function_name(f)
            names += [] if f.owner else [name]
            entries.append(f"  {f.entry.main}: {[name, f.owner, len(f.outputs)]!r},")
    js = [HEAD.format(more=" The friendly functions: texts in, texts out."), "const native = require('./exact');", "const rt = require('./runtime');", ""]
    ts = ["// Made from the export table.", "import * as exact from './exact';", "import * as constants from './constants';", "export { exact, constants };", "",
          "/** The code page of texts from now on: latin1 or ascii, as Buffer knows them, or a table of 256 characters. */",
          "export function setEncoding(encoding: string): void;", ""]
    for owner, what, none in (("Table", "A dBASE-format table", 0), ("File", "A file", -1)):
        js += [f"class {owner} extends rt.Handle {{", f"  static get none() {{ return {none}; }}", "", *code[owner][:-1], "}", ""]
        ts += [f"/** {what} that is open. */", f"export class {owner} {{", "  readonly handle: number;", "  [Symbol.dispose](): void;",
               *types[owner], "}", ""]
    js += code[""]
    js += ["// What each entry of the export table is here: name, class, number of outputs.", "const entries = {", *entries, "};",
           "", f"module.exports = {{ Table, File, exact: native, constants: require('./constants'), setEncoding: rt.setEncoding, entries, {', '.join(names)} }};", ""]
    return "\n".join(js), "\n".join(ts + types[""]) + "\n"


def products(families, groups, clashes):
    index, types = friendly(families)
    constants = [f"  {c.name}: {c.expression}, // {c.meaning}" for g in groups for c in g.constants]
    return {"node/exact.js": exact(families), "node/exact.d.ts": exact_types(families), "node/index.js": index, "node/index.d.ts": types,
            "node/constants.js": "\n".join([HEAD.format(more=""), "module.exports = {", *constants, "};", ""]),
            "node/constants.d.ts": "\n".join(["// Made from the export table.", *(f"export const {c.name}: number;" for g in groups for c in g.constants), ""])}
