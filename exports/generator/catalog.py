"""The table as C++ data: what the command-line host, the random caller and the tests know about each entry."""
from examples import block_text
from kinds import ARGUMENTS, RESULTS
from library import parameters, prototype, stack_bytes, types
from wording import argument_words, result_words, summary


def quoted(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"').replace("\n", "\\n") + '"'


def enumerator(word):
    return "k" + word.capitalize()


def shape_of(entry):
    return (entry.result_type, types(entry))


def passed(argument, index):
    value = f"a[{index}].{argument.of_kind.field}"
    return f"static_cast<{argument.ctype}>({value})" if argument.of_kind.is_number else value


def invoker(name, entry):
    call = f"reinterpret_cast<{entry.result_type}(VX_CALL*)({types(entry)})>(f)"
    call += f"({', '.join(passed(a, i) for i, a in enumerate(entry.arguments))})"
    field = RESULTS[entry.returns].field
    body = f"r->{field} = {call};" if field else f"{call};"
    unused = "".join(s for s, needed in (("(void)a; ", not entry.arguments), ("(void)r; ", not field)) if needed)
    return f"void {name}(Function f, const Value* a, Value* r) {{ {unused}{body} }}"


def enumeration(name, kinds):
    return [f"enum class {name} {{"] + [f"    {enumerator(k)}," for k in kinds] + ["};"]


def predicate(name, enum, kinds, holds):
    cases = " || ".join(f"k == {enum}::{enumerator(k.name)}" for k in kinds.values() if holds(k))
    return f"constexpr bool {name}({enum} k) {{ return {cases}; }}"


def names(enum, kinds):
    return [f"constexpr const char* nameOf({enum} k) {{",
            f"    constexpr const char* names[] = {{{', '.join(quoted(k) for k in kinds)}}};",
            "    return names[static_cast<int>(k)];", "}"]


def kinds_header():
    lines = ["// Made from exports/generator/kinds.py.", "#pragma once", "", "namespace vx::catalog {", ""]
    lines += enumeration("Kind", ARGUMENTS) + enumeration("Result", RESULTS) + [""]
    lines += names("Kind", ARGUMENTS) + names("Result", RESULTS) + [
        "",
        "// Addresses, in contrast to numbers.",
        predicate("isPointer", "Kind", ARGUMENTS, lambda k: k.is_pointer),
        "// Texts that the caller gives, with a length.",
        predicate("isText", "Kind", ARGUMENTS, lambda k: k.is_text),
        "// What the function fills: a host has the memory for it, nobody types it.",
        predicate("isSupplied", "Kind", ARGUMENTS, lambda k: k.supplied),
        predicate("isUnsigned", "Kind", ARGUMENTS, lambda k: k.is_unsigned),
        predicate("isText", "Result", RESULTS, lambda k: k.is_text),
        predicate("isNumber", "Result", RESULTS, lambda k: k.is_number),
        "", "}  // namespace vx::catalog"]
    return "\n".join(lines) + "\n"


def index_of(entry, name):
    return next((i for i, a in enumerate(entry.arguments) if a.name == name), -1)


def catalog(families):
    lines = ["// Made from the export table.", '#include "catalog/catalog.h"', '#include "frame/entry.h"', "",
             "#include <algorithm>", "", "namespace vx::catalog {", "namespace {", ""]
    shapes = {}
    entries = [e for f in families for e in f.entries]
    for entry in entries:
        shape = shape_of(entry)
        if shape not in shapes:
            shapes[shape] = f"invoke{len(shapes)}"
            lines.append(invoker(shapes[shape], entry))
    order = {id(e): i for i, e in enumerate(entries)}
    setups = {f.stem: f.setup for f in families}
    for i, entry in enumerate(entries):
        lines.append(f"const char* const names{i}[] = {{{', '.join(quoted(n) for n in entry.names)}}};")
        if not entry.arguments:
            continue
        lines.append(f"const Argument arguments{i}[] = {{")
        for a in entry.arguments:
            room = f"[](const Value* a) {{ (void)a; return Size{{{a.room.cpp()}}}; }}" if a.room else "nullptr"
            lines.append(f"    {{{quoted(a.name)}, Kind::{enumerator(a.kind)}, {room}, {index_of(entry, a.in_place)}, "
                         f"{index_of(entry, a.without)}, {index_of(entry, a.below)}, {a.limit}, "
                         f"{index_of(entry, a.before)}, {str(a.terminated).lower()}, "
                         f"{str(a.constant).lower()}, {str(a.apart).lower()}, {quoted(argument_words(entry, a))}}},")
        lines.append("};")
    lines += ["", f"const Entry entries[] = {{"]
    for i, entry in enumerate(entries):
        arguments = f"arguments{i}" if entry.arguments else "{}"
        pointer = order[id(entry.source)] if entry.making == "length" else -1
        zero = order[id(entry.source)] if entry.making == "one" else -1
        lines.append(f"    {{{quoted(entry.family)}, names{i}, {arguments}, Result::{enumerator(entry.returns)}, {entry.base}, "
                     f"{pointer}, {zero}, {str(entry.remembers).lower()}, {shapes[shape_of(entry)]}, {quoted(prototype(entry, entry.main) + ';')}, {quoted(summary(entry))}, {quoted(result_words(entry))}, {quoted(entry.notes)}, {quoted(block_text(setups[entry.family], entry.examples))}}},")
    lines += ["};", "", "const Family families[] = {"]
    lines += [f"    {{{quoted(f.stem)}, {quoted(f.title)}}}," for f in families]
    lines += ["};", "", "}  // namespace", "",
              "std::span<const Entry> allEntries() { return entries; }",
              "std::span<const Family> allFamilies() { return families; }", "",
              "}  // namespace vx::catalog"]
    return "\n".join(lines) + "\n"


def calls(families):
    """A struct with one function pointer an entry, filled by name from a loaded library: how tests call."""
    entries = [e for f in families for e in f.entries]
    lines = ["// Made from the export table.", "#pragma once", '#include "frame/entry.h"', "", "namespace vx {", "",
             "// Every entry point of a loaded library, under its main name.", "struct Calls {"]
    for e in entries:
        lines.append(f"    {e.result_type}(VX_CALL* {e.main})({parameters(e)}) = nullptr;")
    lines += ["", "    // `find` turns an exported name into its address, or null.", "    template <class Find>", "    void load(Find find) {"]
    lines += [f"        {e.main} = reinterpret_cast<decltype({e.main})>(find(\"{e.main}\"));" for e in entries]
    lines += ["    }", "};", "", "}  // namespace vx"]
    return "\n".join(lines) + "\n"


def listing(families):
    """For checks in scripts: a line an entry, `family bytes name name ...`."""
    return "".join(f"{e.family} {stack_bytes(e)} {' '.join(e.names)}\n" for f in families for e in f.entries)
