"""Python: `_exact.py` declares every exported name through ctypes; `_functions.py` has the friendly functions."""
import keyword
import re
import textwrap

from kinds import ARGUMENTS
from languages import model

HEAD = '"""Made from the export table.{more}"""\n'
EXACT_TYPES = {"int32_t": "Int32", "uint32_t": "Uint32", "const char *": "Text", "char *": "Buffer", "int32_t *": "Number",
               "const void *": "Bytes", "void *": "Buffer"}
EXACT_RESULTS = {"int32_t": "c_int32", "uint32_t": "c_uint32", "void": "None"}
TYPES = {"number": "int", "unsigned": "int", "bool": "bool", "char": "int", "pos": "int", "offset": "Optional[int]", "text": "Optional[str]",
         "Table": "Optional[Table]", "File": "Optional[File]"}
FORMULAS = model.Formulas(length="_rt.size({name})", host="_rt.host_room()")


def snake(name):
    word = re.sub(r"(?<=[a-z0-9])([A-Z])", r"_\1", name).lower()
    return word + "_" if keyword.iskeyword(word) else word


def function_name(function):
    name = "_".join(function.words)
    return name + "_" if keyword.iskeyword(name) else name


def exact(families):
    lines = [HEAD.format(more=" Every exported name, with its exact types."),
             "# ruff: noqa", "from ctypes import c_int32, c_uint32, c_void_p", "",
             "from ._runtime import Buffer, Bytes, Int32, Number, Text, Uint32, bind", ""]
    for family in families:
        lines.append(f"# {family.title}")
        for entry in family.entries:
            result = EXACT_RESULTS.get(entry.result_type.strip(), "c_void_p")
            types = "".join(f", {EXACT_TYPES[a.ctype]}" for a in entry.arguments)
            targets = " = ".join([entry.main] + entry.names[1:])
            names = " ".join(entry.names)
            lines.append(f'({", ".join(entry.names)},) = bind("{names}", {result}{types})' if len(entry.names) > 1
                         else f'{targets}, = bind("{names}", {result}{types})')
        lines.append("")
    return "\n".join(lines)


def parameter_type(parameter):
    if parameter.type_name:
        return parameter.type_name
    if parameter.is_text:
        return "Optional[str]"
    if parameter.kind == "bytes":
        return "bytes"
    if parameter.kind == "block":
        return "bytearray"
    return "Union[int, str]" if parameter.kind == "char" else "int"


def return_type(function):
    types = [TYPES[o.kind] for o in function.outputs]
    if not types:
        return "None"
    return types[0] if len(types) == 1 else f"tuple[{', '.join(types)}]"


def plain(words):
    return words.replace("\\", "\\\\").replace('"""', '\\"\\"\\"')


def docstring(function, family, indent):
    entry = function.entry
    lines = textwrap.wrap(plain(function.summary), 110)
    if function.parameters:
        lines.append("")
        for p in function.parameters:
            if not (function.owner and p is function.parameters[0]):
                lines += textwrap.wrap(f"{snake(p.name)}: {plain(p.words)}", 110, subsequent_indent="    ")
    if function.outputs:
        lines += [""] + textwrap.wrap("Returns " + "; ".join(plain(o.words) for o in function.outputs) + ".", 110, subsequent_indent="    ")
    for paragraph in entry.notes.split("\n\n"):
        if paragraph:
            lines += [""] + textwrap.wrap(plain(model.one_line(paragraph)), 110)
    if entry.examples:
        lines += ["", "Examples, as vexlor writes calls:", ""] + ["    " + plain(e) for e in [*family.setup, *entry.examples]]
    if lines[-1].endswith('"'):
        lines[-1] += " "
    lines[0] = '"""' + lines[0]
    if len(lines) == 1:
        return [indent + lines[0] + '"""']
    return [(indent + line).rstrip() for line in lines] + [indent + '"""']


def passed(function, argument):
    """How the argument is handed to the exact function."""
    name = snake(argument.name)
    if argument.kind in ("dest", "out", "str", "edit", "bytes", "block", "char"):
        return name + "_"
    if ARGUMENTS[argument.kind].ignored:
        return "0"
    if argument.kind in model.OBJECTS:
        return "self.handle" if function.is_self(argument) else f"{name}.handle"
    if argument.kind == "pos" and function.entry.base == 1:
        return f"{name} + 1"
    return name


def prepared(function):
    """Lines that turn parameters into what the exact function takes, destinations last, since their rooms depend on the others."""
    lines = []
    entry = function.entry

    def room(argument):
        text = FORMULAS.room(argument.room)
        for other in entry.arguments:
            replacement = snake(other.name) + ("_" if other.kind in ("str", "edit", "char") else "")
            text = re.sub(rf"\b{other.name}\b(?!\()", replacement, text)
        return text

    for a in entry.arguments:
        name = snake(a.name)
        if a.kind == "str":
            lines.append(f"{name}_ = _rt.encoded({name})")
        elif a.kind == "char":
            lines.append(f"{name}_ = _rt.code({name})")
    for a in entry.arguments:
        name = snake(a.name)
        if a.kind == "edit":
            lines.append(f"{name}_ = _rt.editable({name}, {room(a) if a.room else 0})")
        elif a.kind == "bytes":
            before = f", {snake(a.before)}" if a.before else ""
            lines.append(f"{name}_ = _rt.readable({name}, {room(a) if a.room else 0}{before})")
        elif a.kind == "block":
            before = f", {snake(a.before)}" if a.before else ""
            lines.append(f"{name}_ = _rt.writable({name}, {room(a) if a.room else 0}{before})")
        elif a.kind == "dest":
            lines.append(f"{name}_ = _rt.destination({room(a)})")
        elif a.kind == "out":
            lines.append(f"{name}_ = c_int32()")
    return lines


def returned(function):
    """The expression of each output."""
    entry = function.entry
    expressions = []
    for o in function.outputs:
        name = snake(o.name) + "_"
        if o.name != "result":
            kind = next(a.kind for a in entry.arguments if a.name == o.name)
            if kind == "out":
                expressions.append(f"{name}.value")
            elif o.name == function.nullable:
                expressions.append(f"_rt.decoded({name}) if result else None")
            else:
                expressions.append(f"_rt.decoded({name})")
        elif o.kind == "pos":
            expressions.append("result - 1" if entry.base == 1 else "result")
        elif o.kind == "bool":
            expressions.append("bool(result)")
        elif o.kind == "text":
            expressions.append("_rt.text_at(result)")
        elif o.kind == "offset":
            expressions.append(f"_rt.offset_in({snake(o.place)}_, result)")
        elif o.kind in ("Table", "File"):
            expressions.append(f"{o.kind}.of(result)")
        else:
            expressions.append("result")
    return expressions


def definition(function, family):
    entry = function.entry
    method = bool(function.owner)
    indent = "    " if method else ""
    parameters = function.parameters[1:] if method else function.parameters
    declared = ["self"] * method + [f"{snake(p.name)}: {parameter_type(p)}" for p in parameters]
    body = indent + "    "
    lines = [f"{indent}def {function_name(function)}({', '.join(declared)}) -> {return_type(function)}:"]
    lines += docstring(function, family, body)
    lines += [body + line for line in prepared(function)]
    call = f"_exact.{entry.main}({', '.join(passed(function, a) for a in entry.arguments)})"
    outputs = returned(function)
    uses_result = any("result" in o for o in outputs)
    if method and function_name(function) == "close":
        lines += [f"{body}result = {call}", f"{body}if {model.CLOSED[function.owner]}:  # what could not be written stays open", f"{body}    self.forget()", f"{body}return {outputs[0]}"]
    elif not outputs:
        lines.append(body + call)
    else:
        lines.append(body + ("result = " if uses_result else "") + call)
        lines.append(body + "return " + ", ".join(outputs))
    return lines


def friendly(families):
    plain_lines, methods, names, calls = [], {"Table": [], "File": []}, [], []
    for family, functions in model.functions(families):
        for f in functions:
            lines = definition(f, family)
            target = methods[f.owner] if f.owner else plain_lines
            target += lines + [""] + ([""] if not f.owner else [])
            name = function_name(f)
            if not f.owner:
                names.append(name)
            where = f"{f.owner}.{name}" if f.owner else name
            calls.append(f'    "{f.entry.main}": ({where}, {len(f.outputs)}),')
    lines = [HEAD.format(more=" The friendly functions: texts in, texts out."), "from __future__ import annotations", "", "from ctypes import c_int32", "from typing import Optional, Union", "",
             "from . import _exact", "from . import _runtime as _rt", ""]
    for owner, what in (("Table", "A dBASE-format table"), ("File", "A file")):
        empty = {"Table": 0, "File": -1}[owner]
        lines += ["", f"class {owner}(_rt.Handle):", f'    """{what} that is open; closed at the end of a `with` block, or with the object."""',
                  f"    NONE = {empty}", ""] + methods[owner]
    lines += [""] + plain_lines
    lines += ["# What each entry of the export table is here: function, number of outputs.",
              "_ENTRIES = {", *calls, "}", "", f"__all__ = {['File', 'Table', *sorted(names)]!r}", ""]
    return "\n".join(lines)


def products(families, groups, clashes):
    constants = [HEAD.format(more=" Modes, flags and error numbers, by name.")]
    for group in groups:
        constants += ["", f"# {group.title}: {model.one_line(group.does)}"]
        constants += [f"{c.name} = {c.expression}  # {c.meaning}" for c in group.constants]
    return {"python/vexlor32/_exact.py": exact(families), "python/vexlor32/_functions.py": friendly(families),
            "python/vexlor32/constants.py": "\n".join(constants) + "\n"}
