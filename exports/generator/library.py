"""What the two libraries are built from: entry declarations, mechanical entries, and the lists of exported names."""


def declared(c_type, name):
    return f"{c_type}{'' if c_type.endswith('*') else ' '}{name}"


def parameters(entry):
    return ", ".join(declared(a.ctype, a.name) for a in entry.arguments) or "void"


def types(entry):
    return ", ".join(a.ctype for a in entry.arguments)


def prototype(entry, name):
    """The C declaration; a calling convention may stand before the name."""
    return f"{declared(entry.result_type, name)}({parameters(entry)})"


def definition(entry, arguments):
    return f"{declared(entry.result_type, 'VX_CALL')} vx_{entry.symbol}({arguments}) noexcept"


def declarations(family):
    """The header that a family's source includes: a definition that differs from the table does not compile."""
    lines = [f"// Made from exports/{family.stem}.toml.", "#pragma once", '#include "frame/entry.h"', ""]
    lines += [f'extern "C" VX_EXPORT {definition(e, parameters(e))};' for e in family.entries]
    return "\n".join(lines) + "\n"


def length_body(entry):
    dest = next((a for a in entry.arguments if a.in_place), None)
    left_behind = f"{dest.name} ? nullptr : {dest.in_place}" if dest else "nullptr"
    call = ", ".join(a.name for a in entry.arguments)
    return f"return resultLength(vx_{entry.source.symbol}({call}), {left_behind});"


def one_based_body(entry):
    call = ", ".join(f"zeroBased({a.name})" if a.kind == "pos" else a.name for a in entry.arguments)
    result = f"vx_{entry.source.symbol}({call})"
    return f"return {f'oneBased({result})' if entry.returns == 'pos' else result};"


def stub_body(entry):
    kind, name, value = entry.stub
    notice = f'vx::notices::{kind}("{name}"); ' if kind != "value" else ""
    return notice + ("" if entry.returns == "void" else f"return {value};")


BODIES = {"length": length_body, "one": one_based_body, "stub": stub_body}


def mechanical(families):
    lines = ["// Made from the export table: length forms, 1-based twins and stubs."]
    lines += [f'#include "entries/{f.stem}.h"' for f in families]
    lines += ['#include "frame/mechanical.h"', '#include "frame/notices.h"', "",
              "using namespace vx::mechanical;", ""]
    for family in families:
        for entry in family.entries:
            if entry.making in BODIES:
                unnamed = parameters(entry)
                if entry.making == "stub":
                    unnamed = types(entry) or "void"
                lines.append(f"{definition(entry, unnamed)} {{ {BODIES[entry.making](entry)} }}")
    return "\n".join(lines) + "\n"


def all_entries(families):
    return [e for f in families for e in f.entries]


def stack_bytes(entry):
    return 4 * len(entry.arguments)


def decoration(entry, bits):
    """What a stdcall name ends with; 64-bit code has one calling convention, without decoration."""
    return f"@{stack_bytes(entry)}" if bits == 32 else ""


def windows_def(families, bits, extra=()):
    lines = [f"LIBRARY Vexlor{bits}.DLL", "EXPORTS"]
    lines += [f"  {name} = vx_{e.symbol}{decoration(e, bits)}" for e in all_entries(families) for name in e.names]
    return "\n".join(lines + [f"  {name}" for name in extra]) + "\n"


def import_def(families, bits, clashes):
    """For the import libraries: what a compiler emits for a name, mapped to the undecorated export. Where nothing decorates
    names, those that are the C library's, too, are left to it."""
    lines = [f"LIBRARY Vexlor{bits}.DLL", "EXPORTS"]
    lines += [f"  {name}{decoration(e, bits)}" for e in all_entries(families) for name in e.names
              if bits == 32 or name not in clashes]
    return "\n".join(lines) + "\n"


def elf_aliases(families):
    return "".join(f"{name} = vx_{e.symbol};\n" for e in all_entries(families) for name in e.names)


def elf_versions(families, extra=()):
    names = [name for e in all_entries(families) for name in e.names]
    return "VEXLOR32_1 {\n  global:\n" + "".join(f"    {n};\n" for n in names + list(extra)) + "  local: *;\n};\n"


def link_stub(families, clashes):
    """Assembly of the library that programs link with: the same names, without those of the C library."""
    lines = [".text"]
    for entry in all_entries(families):
        for name in entry.names:
            if name not in clashes:
                lines.append(f".globl {name}\n.type {name}, @function\n{name}:")
    lines += ["ret", '.section .note.GNU-stack,"",@progbits']
    return "\n".join(lines) + "\n"
