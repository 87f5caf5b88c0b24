"""C++: vexlor32.hpp, functions of std::string over the C header."""
import textwrap

from kinds import ARGUMENTS
from languages import model

KEYWORDS = {"goto", "if", "do", "for", "float", "double", "short", "long", "signed", "unsigned", "const", "this", "delete", "char", "int", "new", "default", "operator", "template", "union", "register", "and", "or", "not", "xor", "switch"}
TYPES = {"number": "std::int32_t", "unsigned": "std::uint32_t", "bool": "bool", "char": "std::int32_t", "pos": "std::int32_t",
         "offset": "std::ptrdiff_t", "text": "std::string", "Table": "Table", "File": "File"}
FORMULAS = model.Formulas(number="std::int64_t{{{name}}}", length="detail::size({name})", host="detail::hostRoom()", divide="{0} / {1}",
                          call="std::{function}({0}, {1})", literal="std::int64_t{{{0}}}")
HEAD = """\
// SPDX-License-Identifier: MIT
//
// vexlor32.hpp: the functions of the library with std::string, made from the export table.
//
// A failure shows in the result, as in the C functions; fError() gives the reason of the last one. Positions begin with 0, and one that
// does not exist is -1. Texts are single-byte. Tables and files close themselves.
#pragma once

#include <vexlor32.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <tuple>

#include "vexlor32_detail.hpp"

namespace vexlor32 {
"""


def identifier(name):
    return name + "_" if name in KEYWORDS else name


def camel(words):
    return identifier(words[0] + "".join(w.capitalize() for w in words[1:]))


def function_name(function):
    return camel(function.words)


def parameter_type(p):
    if p.type_name:
        return f"const {p.type_name}&"
    if p.is_text:
        return "Text"
    if p.kind == "bytes":
        return "const std::string&"
    if p.kind == "block":
        return "std::string&"
    return "std::uint32_t" if p.kind == "uint" else "std::int32_t"


def result_type(function):
    types = [TYPES[o.kind] for o in function.outputs]
    return "void" if not types else types[0] if len(types) == 1 else f"std::tuple<{', '.join(types)}>"


def comment(function, family, indent):
    lines = textwrap.wrap(function.summary, 110)
    for p in function.parameters[1 if function.owner else 0:]:
        lines += textwrap.wrap(f"{p.name}: {p.words}", 110, initial_indent="  ", subsequent_indent="      ")
    if function.outputs:
        lines += textwrap.wrap("returns " + "; ".join(o.words for o in function.outputs), 110, initial_indent="  ", subsequent_indent="      ")
    lines += ["  " + e for e in function.entry.examples]
    return [f"{indent}// {line}".replace("\\\n", "\n") for line in lines]


def room(function, argument):
    text = FORMULAS.room(argument.room)
    for a in function.entry.arguments:
        if ARGUMENTS[a.kind].is_number:
            text = text.replace(f"std::int64_t{{{a.name}}}", f"std::int64_t{{{identifier(a.name)}}}")
    return text


def definition(function, family, name_in_c):
    entry = function.entry
    indent = "    " if function.owner else ""
    body = indent + "    "
    parameters = function.parameters[1:] if function.owner else function.parameters
    declared = ", ".join(f"{parameter_type(p)} {identifier(p.name)}" for p in parameters)
    lines = comment(function, family, indent)
    name = function_name(function)
    closes = function.owner and name == "close"
    const = " const" if function.owner and not closes else ""
    lines.append(f"{indent}{'inline ' if not function.owner else ''}{result_type(function)} {name}({declared}){const} {{")
    passed = []
    for a in entry.arguments:
        n = identifier(a.name)
        if a.kind in ("dest", "edit"):
            content = f"{n}.c_str()" if a.kind == "edit" else "nullptr"
            lines.append(f"{body}detail::Destination {a.name}Room({content}, {room(function, a) if a.room else 0});")
            passed.append(f"{a.name}Room.data()")
        elif a.kind == "out":
            lines.append(f"{body}std::int32_t {a.name}Out = 0;")
            passed.append(f"&{a.name}Out")
        elif a.kind in ("bytes", "block"):
            before = identifier(a.before) if a.before else "0"
            passed.append(f"detail::within({n}, {room(function, a) if a.room else 0}, {before})")
        elif a.kind == "str":
            passed.append(f"{n}.c_str()")
        elif ARGUMENTS[a.kind].ignored:
            passed.append("0")
        elif a.kind in model.OBJECTS:
            passed.append("handle()" if function.is_self(a) else f"{n}.handle()")
        elif a.kind == "pos" and entry.base == 1:
            passed.append(f"detail::fromZero({n})")
        else:
            passed.append(n)
    values = []
    for o in function.outputs:
        if o.name != "result":
            out = next(a.kind for a in entry.arguments if a.name == o.name) == "out"
            values.append(f"{o.name}Out" if out else f"{o.name}Room.text()")
        elif o.kind == "pos" and entry.base == 1:
            values.append("result - 1")
        elif o.kind == "bool":
            values.append("result != 0")
        elif o.kind == "text":
            values.append("std::string(result ? result : \"\")")
        elif o.kind == "offset":
            place = next(a for a in entry.arguments if a.name == o.place)
            start = {"block": f"{identifier(place.name)}.data()", "str": f"{identifier(place.name)}.c_str()"}.get(place.kind, f"{place.name}Room.data()")
            values.append(f"detail::offset({start}, result)")
        elif o.kind in ("Table", "File"):
            values.append(f"{o.kind}(result)")
        else:
            values.append("result")
    call = f"::{name_in_c}({', '.join(passed)})"
    uses = any("result" in v for v in values)
    lines.append(f"{body}{'auto result = ' if uses else ''}{call};")
    if closes:
        lines.append(f"{body}if ({model.CLOSED[function.owner]}) forget();  // what could not be written stays open")
    if values:
        lines.append(f"{body}return {values[0]};" if len(values) == 1 else f"{body}return {{{', '.join(values)}}};")
    lines.append(indent + "}")
    return lines


def c_name(entry, clashes):
    """The name under which the C header declares the entry: the first that belongs to nobody else."""
    return next(n for n in entry.names if n not in clashes)


def header(families, clashes):
    free, methods = [], {"Table": [], "File": []}
    for family, functions in model.functions(families):
        for f in functions:
            target = methods[f.owner] if f.owner else free
            target += definition(f, family, c_name(f.entry, clashes)) + [""]
    lines = [HEAD]
    for owner, none, what in (("File", "-1", "A file"), ("Table", "0", "A dBASE-format table")):
        lines += [f"// {what} that is open; closed when this is destroyed. False where opening it failed.",
                  f"class {owner} : public detail::Handle<{owner}, {TYPES['number'] if owner == 'File' else TYPES['unsigned']}, {none}> {{",
                  " public:", "    using Handle::Handle;", "", *methods[owner][:-1], "};", ""]
    return "\n".join(lines + free + ["}  // namespace vexlor32", ""])


def dispatch(families, clashes):
    """For tests: every function of the C header by its name, and the friendly functions behind calls with words."""
    lines = ["// Made from the export table.", "const std::pair<const char* const, void (*)()> exactCalls[] = {"]
    for family in families:
        for e in family.entries:
            types = ", ".join(a.ctype.strip() for a in e.arguments)
            given = ", ".join(f"reinterpret_cast<{a.ctype}>(vxc_pointer({i}))" if "*" in a.ctype else f"static_cast<{a.ctype}>(vxc_number({i}))"
                              for i, a in enumerate(e.arguments))
            gave = {"void": "{}", "int32_t": "vxc_gave_number({})", "uint32_t": "vxc_gave_number({})"}.get(e.result_type.strip(), "vxc_gave_place(static_cast<const char*>({}))")
            for n in e.names:
                declared = n if n not in clashes else c_name(e, clashes)
                call = f"static_cast<{e.result_type.strip()}(VEXLOR32_CALL*)({types})>(&::{declared})({given})"
                lines.append(f'    {{"{n}", [] {{ {gave.format(call)}; }}}},')
    lines += ["};", "", "void friendlyCall(Friendly& call, const std::string& name) {", "    using namespace vexlor32;"]
    for family, functions in model.functions(families):
        for f in functions:
            lines.append(f'    if (name == "{f.entry.main}") {{')
            names = []
            for i, p in enumerate(f.parameters):
                reader = {"str": "text", "edit": "text", "bytes": "bytes", "block": "bytes", "table": "table", "handle": "file", "uint": "unsignedNumber"}.get(p.kind, "number")
                lines.append(f"        auto&& a{i} = call.{reader}({i});")
                names.append(f"a{i}")
            target = f"{names[0]}.{function_name(f)}" if f.owner else f"vexlor32::{function_name(f)}"
            invocation = f"{target}({', '.join(names[1:] if f.owner else names)})"
            if not f.outputs:
                lines.append(f"        {invocation};")
            elif len(f.outputs) == 1:
                lines.append(f"        auto r0 = {invocation};")
            else:
                lines.append(f"        auto [{', '.join(f'r{i}' for i in range(len(f.outputs)))}] = {invocation};")
            for i, o in enumerate(f.outputs):
                value = f"std::move(r{i})" if o.kind in ("Table", "File") else f"r{i}"
                lines.append(f"        call.gave{'Offset' if o.kind == 'offset' else ''}({value});")
            lines += [f"        call.gaveBlock({i}, a{i});" for i, p in enumerate(f.parameters) if p.kind == "block"]
            lines += ["        return;", "    }"]
    return "\n".join(lines + ['    throw std::runtime_error("there is no " + name);', "}", ""])


def products(families, groups, clashes):
    return {"cpp/vexlor32.hpp": header(families, clashes), "tests/cpp_dispatch.h": dispatch(families, clashes)}
