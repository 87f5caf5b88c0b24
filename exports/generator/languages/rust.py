"""Rust: `exact.rs` with the exported names as they are, `functions.rs` with functions that take and give texts."""
import re
import textwrap

from kinds import ARGUMENTS
from languages import model

HEAD = "// SPDX-License-Identifier: MIT\n// Made from the export table."
EXACT = {"int32_t": "i32", "uint32_t": "u32", "const char *": "*const c_char", "char *": "*mut c_char", "int32_t *": "*mut i32",
         "const void *": "*const c_void", "void *": "*mut c_void"}
TYPES = {"number": "i32", "unsigned": "u32", "bool": "bool", "char": "i32", "pos": "i32", "offset": "Option<usize>", "text": "String",
         "Table": "Option<Table>", "File": "Option<File>"}
OWNERS = {"Table": ("u32", "0", "A dBASE-format table"), "File": ("i32", "-1", "A file")}
KEYWORDS = {"match", "type", "move", "loop", "box", "in", "mod", "ref", "where", "use", "fn", "impl", "let", "final", "macro", "priv", "try", "yield"}
FORMULAS = model.Formulas(number="i64::from({name})", length="rt::size(&{name}_)", host="rt::host_room()", divide="{0} / {1}",
                          call="std::cmp::{function}({0}, {1})")


def identifier(name):
    word = re.sub(r"(?<=[a-z0-9])([A-Z])", r"_\1", name).lower()
    return word + "_" if word in KEYWORDS else word


def function_name(function):
    return identifier("_".join(function.words))


def linked_name(entry, clashes):
    """The first name that belongs to nobody else: the others are not in what programs link with."""
    return next(n for n in entry.names if n not in clashes)


def result_of(entry):
    return EXACT.get(entry.result_type.strip())


def exact(families, clashes):
    lines = [HEAD, "//! Exported names, with their exact types; those that belong to other libraries, too, are left to an entry's other names.",
             "", "#![allow(non_snake_case)]", "", "use std::os::raw::{c_char, c_void};", "",
             '#[cfg_attr(not(all(windows, target_pointer_width = "64")), link(name = "vexlor32"))]',
             '#[cfg_attr(all(windows, target_pointer_width = "64"), link(name = "vexlor64"))]', 'extern "system" {']
    for family in families:
        lines += ["", f"    // {family.title}"]
        for e in family.entries:
            arguments = ", ".join(f"{identifier(a.name)}: {EXACT[a.ctype]}" for a in e.arguments)
            returns = f" -> {result_of(e)}" if result_of(e) else ""
            lines += [f"    pub fn {n}({arguments}){returns};" for n in e.names if n not in clashes]
    return "\n".join(lines + ["}", ""])


def output_type(function, o):
    maybe = o.kind == "text" and o.name in ("result", function.nullable)
    return f"Option<{TYPES[o.kind]}>" if maybe else TYPES[o.kind]


def result_type(function):
    types = [output_type(function, o) for o in function.outputs]
    return "" if not types else f" -> {types[0]}" if len(types) == 1 else f" -> ({', '.join(types)})"


def parameter_type(p):
    if p.type_name:
        return f"&{p.type_name}"
    return {"bytes": "&[u8]", "block": "&mut [u8]", "uint": "u32", "char": "impl Into<i32>"}.get(p.kind, "impl Text" if p.is_text else "i32")


def comment(function, indent):
    entry = function.entry
    lines = textwrap.wrap(function.summary, 110)
    for paragraph in entry.notes.split("\n\n"):
        if paragraph:
            lines += [""] + textwrap.wrap(model.one_line(paragraph), 110)
    parameters = function.parameters[1 if function.owner else 0:]
    if parameters:
        lines.append("")
    for p in parameters:
        lines += textwrap.wrap(f"* `{identifier(p.name)}`: {p.words}", 110, subsequent_indent="  ")
    if function.outputs:
        lines += [""] + textwrap.wrap("Returns " + "; ".join(o.words for o in function.outputs) + ".", 110)
    if entry.examples:
        lines += ["", "Examples, as vexlor writes calls:", "```text", *entry.examples, "```"]
    return [f"{indent}/// {line}".rstrip() for line in lines]


def prepared(function):
    entry = function.entry

    def room(a):
        if not a.room:
            return "0"
        text = FORMULAS.room(a.room)
        for other in entry.arguments:
            name = identifier(other.name) + ("_" if other.kind == "char" else "")
            text = text.replace(f"i64::from({other.name})", f"i64::from({name})")
            text = text.replace(f"rt::size(&{other.name}_)", f"rt::size(&{identifier(other.name)}_)")
        return text

    first, then = [], []
    for a in entry.arguments:
        name = identifier(a.name)
        if a.kind in ("str", "edit"):
            assert a.kind == "str" or a.room is None, f"{entry.main}: an edited text with a room"
            first.append(f"let {'mut ' if a.kind == 'edit' else ''}{name}_ = {name}.encoded();")
        elif a.kind == "char":
            first.append(f"let {name}_: i32 = {name}.into();")
        elif a.kind == "dest":
            then.append(f"let mut {name}_ = rt::destination({room(a)});")
        elif a.kind == "out":
            then.append(f"let mut {name}_ = 0;")
        elif a.kind in ("bytes", "block"):
            then.append(f"let {name}_ = rt::front({name}, {room(a)}, {identifier(a.before) if a.before else '0'});")
    return first + then


def passed(function, a):
    name = identifier(a.name)
    if ARGUMENTS[a.kind].ignored:
        return "0"
    if a.kind in model.OBJECTS:
        own = function.is_self(a)
        return f"{'self' if own else name}.handle()"
    if a.kind == "pos" and function.entry.base == 1:
        return f"rt::from_zero({name})"
    return {"str": f"rt::pointer(&{name}_)", "edit": f"rt::editable(&mut {name}_)", "dest": f"rt::editable(&mut {name}_)", "char": f"{name}_",
            "out": f"&mut {name}_", "bytes": f"{name}[{name}_..].as_ptr().cast()",
            "block": f"{name}[{name}_..].as_mut_ptr().cast()"}.get(a.kind, name)


def returned(function, o):
    entry = function.entry
    name = identifier(o.name) + "_"
    if o.name != "result":
        if next(a.kind for a in entry.arguments if a.name == o.name) == "out":
            return name
        return f"if result.is_null() {{ None }} else {{ Some(rt::decoded(&{name})) }}" if o.name == function.nullable else f"rt::decoded(&{name})"
    place = next((a for a in entry.arguments if a.name == o.place), None)
    if place:
        start = f"{identifier(place.name)}.as_ptr()" if place.kind == "block" else f"rt::pointer(&{identifier(place.name)}_).cast()"
        return f"rt::offset({start}, result as *const u8)"
    return {"bool": "result != 0", "text": "rt::text_at(result)", "Table": "Table::of(result)",
            "File": "File::of(result)"}.get(o.kind, "result - 1" if o.kind == "pos" and entry.base == 1 else "result")


def definition(function, clashes):
    entry = function.entry
    indent = "    " if function.owner else ""
    name = function_name(function)
    closes = function.owner and name == "close"
    declared = [f"{identifier(p.name)}: {parameter_type(p)}" for p in function.parameters[1 if function.owner else 0:]]
    if function.owner:
        declared.insert(0, "&mut self" if closes else "&self")
    lines = comment(function, indent) + [f"{indent}pub fn {name}({', '.join(declared)}){result_type(function)} {{"]
    outputs = [returned(function, o) for o in function.outputs]
    call = f"unsafe {{ exact::{linked_name(entry, clashes)}({', '.join(passed(function, a) for a in entry.arguments)}) }};"
    body = prepared(function) + [f"let result = {call}" if any("result" in o for o in outputs) else call]
    if closes:
        none = OWNERS[function.owner][1]
        body.append(f"if result == 0 {{ self.handle = {none}; }}" if function.owner == "Table" else f"self.handle = {none};")
    if outputs:
        body.append(outputs[0] if len(outputs) == 1 else f"({', '.join(outputs)})")
    return lines + [f"{indent}    {line}" for line in body] + [indent + "}", ""]


def class_start(owner):
    number, none, what = OWNERS[owner]
    return [f"/// {what} that is open; closed when it is dropped.", "#[derive(Debug)]", f"pub struct {owner} {{", f"    handle: {number},", "}", "",
            f"impl Drop for {owner} {{", "    fn drop(&mut self) {", f"        if self.handle != {none} {{", "            self.close();", "        }", "    }", "}", "",
            f"impl {owner} {{", f"    fn of(handle: {number}) -> Option<{owner}> {{",
            f"        if handle == {none} {{ None }} else {{ Some({owner} {{ handle }}) }}", "    }", "",
            "    /// The number by which the exact functions know it. Panics if it is closed.",
            f"    pub fn handle(&self) -> {number} {{", f'        assert!(self.handle != {none}, "the {owner.lower()} is closed");', "        self.handle", "    }", ""]


def functions(families, clashes):
    code = {"": [], "Table": [], "File": []}
    for _, all_functions in model.functions(families, first=0):
        for f in all_functions:
            code[f.owner] += definition(f, clashes)
    lines = [HEAD, "", "#![allow(unused_parens)]", "", "use crate::exact;", "use crate::runtime as rt;", "use crate::runtime::Text;", ""]
    for owner in OWNERS:
        lines += class_start(owner) + code[owner][:-1] + ["}", ""]
    return "\n".join(lines + code[""])


def constants(groups):
    lines = [HEAD, "//! Modes, flags and error numbers, by name."]
    for g in groups:
        lines += ["", f"// {g.title}: {model.one_line(g.does)}"]
        for c in g.constants:
            lines += [f"/// {c.meaning}", f"pub const {c.name}: {'u32' if int(c.value, 0) > 0x7FFFFFFF else 'i32'} = {c.value};"]
    return "\n".join(lines) + "\n"


def dispatch(families, clashes):
    """For tests: every exported name with a call of its types, and the friendly functions behind calls with words."""
    shapes, table, invoked = {}, [], []
    for family in families:
        for e in family.entries:
            shape = (tuple(EXACT[a.ctype] for a in e.arguments), result_of(e))
            if shape not in shapes:
                shapes[shape] = f"S{len(shapes)}"
                words = ", ".join(f"vxc_number({i}) as {t}" if t in ("i32", "u32") else f"vxc_pointer({i}).cast()" for i, t in enumerate(shape[0]))
                result = {None: f"f({words})", "i32": f"vxc_gave_number(f({words}).into())",
                          "u32": f"vxc_gave_number(f({words}).into())"}.get(shape[1], f"vxc_gave_place(f({words}) as *const u8)")
                invoked.append(f"        Call::{shapes[shape]}(f) => {result},")
            table += [f'    ("{n}", Call::{shapes[shape]}(exact::{n if n not in clashes else linked_name(e, clashes)})),' for n in e.names]
    lines = ["// Made from the export table.", "pub enum Call {"]
    lines += [f'    {s}(unsafe extern "system" fn({", ".join(a)}){f" -> {r}" if r else ""}),' for (a, r), s in shapes.items()]
    lines += ["}", "", "pub static EXACT: &[(&str, Call)] = &[", *table, "];", "", "unsafe fn invoke(call: &Call) {", "    match call {", *invoked, "    }", "}", "",
              "pub fn friendly_call(call: &mut Friendly, name: &str) {", "    match name {"]
    for _, all_functions in model.functions(families):
        for f in all_functions:
            lines.append(f'        "{f.entry.main}" => {{')
            given, after = [], []
            for i, p in enumerate(f.parameters):
                reader = {"bytes": "bytes", "block": "bytes", "table": "opened::<Table>", "handle": "opened::<File>", "uint": "unsigned"}.get(p.kind, "text" if p.is_text else "number")
                lines.append(f"            let {'mut ' if p.kind == 'block' else ''}a{i} = call.{reader}({i});")
                given.append(f"a{i}.as_deref()" if p.is_text else f"&mut a{i}" if p.kind == "block" else f"&a{i}" if p.is_memory or p.type_name else f"a{i}")
                if p.kind == "block":
                    after.append(f'            call.gave_block({i}, &a{i});')
            invocation = f"a0.{function_name(f)}({', '.join(given[1:])})" if f.owner else f"vexlor32::{function_name(f)}({', '.join(given)})"
            results = [f"r{i}" for i in range(len(f.outputs))]
            lines.append(f"            {f'let {results[0]} = ' if len(results) == 1 else f'let ({chr(44).join(results)}) = ' if results else ''}{invocation};")
            for r, o in zip(results, f.outputs):
                if o.kind in ("Table", "File"):
                    lines.append(f"            call.gave_object('{o.kind[0]}', {r}.as_ref().map(|o| o.handle().into()), {r});")
                elif o.kind in ("text", "offset"):
                    lines.append(f'            call.gave_{o.kind.lower()}({r}{".into()" if o.kind == "text" else ""});')
                else:
                    lines.append(f"            call.gave(i64::from({r}));")
            lines += after + ["        }"]
    return "\n".join(lines + ['        _ => panic!("there is no {}", name),', "    }", "}", ""])


def products(families, groups, clashes):
    return {"rust/src/exact.rs": exact(families, clashes), "rust/src/functions.rs": functions(families, clashes),
            "rust/src/constants.rs": constants(groups), "tests/rust_dispatch.rs": dispatch(families, clashes)}
