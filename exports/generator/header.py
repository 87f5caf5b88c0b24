"""The public C header."""
import textwrap

from library import prototype
from wording import argument_words, is_length, result_words, summary

HEAD = """\
/* SPDX-License-Identifier: MIT
 *
 * vexlor32.h: the functions of Vexlor32.DLL (32-bit Windows), Vexlor64.DLL (64-bit Windows) and libvexlor32.so (64-bit
 * Linux), for C and C++.
 *
 * Made from the tables under exports/; edit those, not this file.
 *
 * Texts are NUL-terminated single-byte strings. Destinations are yours: give each the room that its line states; nothing
 * is ever yours to free. Counts of tokens, lines, fields and occurrences begin with 1; character positions begin
 * with 1, or with 0 in the functions that say so. Failures are told by the result alone.
 *
 * Every function has further names. They are declared when VEXLOR32_ALL_NAMES is defined, except those that belong to the C
 * library or to others, too (isalpha, fopen, crc32, ...): a program finds those with GetProcAddress or dlsym.
 *
 * Include this header after all those of the system and of other libraries. Some of them define a name of ours as a macro
 * (StrCmp in <shlwapi.h>); it is undefined here, and would be back, silently, if they came later. On Linux, link this library
 * behind all others, too: one whose names have no versions, such as zlib, would otherwise call our function for its own.
 */
#ifndef VEXLOR32_H
#define VEXLOR32_H

#include <stdint.h>
"""
API = """
#if defined(_WIN32)
#define VEXLOR32_CALL __stdcall
#ifndef VEXLOR32_API
#define VEXLOR32_API __declspec(dllimport)
#endif
#else
#define VEXLOR32_CALL
#ifndef VEXLOR32_API
#define VEXLOR32_API
#endif
#endif

#ifdef __cplusplus
extern "C" {
#endif
"""
TAIL = """
#ifdef __cplusplus
}
#endif

#endif
"""
WIDTH = 118


def wrapped(text, first, rest):
    return textwrap.wrap(text, WIDTH, initial_indent=first, subsequent_indent=rest, break_long_words=False, break_on_hyphens=False)


def declaration(entry, name):
    return f"VEXLOR32_API {prototype(entry, f'VEXLOR32_CALL {name}')};"


def comment(entry):
    if is_length(entry):
        lines = wrapped(summary(entry), "/* ", " * ")
        return lines[:-1] + [lines[-1] + " */"]
    if entry.base == 0 and entry.main and entry.making == "hand":
        return [f"/* As the function above, with 0-based positions; returns {result_words(entry)}. */"]
    lines = wrapped(summary(entry), "/* ", " * ")
    pad = max((len(a.name) for a in entry.arguments), default=0)
    pad = max(pad, len("returns"))
    for a in entry.arguments:
        lines += wrapped(argument_words(entry, a), f" *   {a.name:<{pad}}  ", " *   " + " " * (pad + 2))
    lines += wrapped(result_words(entry), f" *   {'returns':<{pad}}  ", " *   " + " " * (pad + 2))
    for paragraph in entry.notes.split("\n\n"):
        lines += wrapped(" ".join(paragraph.split()), " * ", " * ") if paragraph else []
    return lines[:-1] + [lines[-1] + " */"]


def constants(groups):
    lines = []
    for group in groups:
        lines += [""] + wrapped(f"---- {group.title}: {group.does} ----", "/* ", " * ")
        lines[-1] += " */"
        pad = max(len(c.name) for c in group.constants)
        value = max(len(c.expression) for c in group.constants)
        lines += [f"#define {c.name:<{pad}} {c.expression:<{value}} /* {c.meaning} */" for c in group.constants]
    return lines


def declarations(entry, names, macros):
    return [line for n in names for line in ([f"#undef {n}"] if n in macros else []) + [declaration(entry, n)]]


def header(families, groups, clashes, macros):
    """`clashes` are names that other headers declare, which this one leaves to them; `macros` those that they define."""
    lines = [HEAD.rstrip("\n")] + constants(groups) + [API]
    for family in families:
        lines.append(f"\n/* ---- {family.title} ---- */\n")
        for entry in family.entries:
            lines += comment(entry)
            free = [n for n in entry.names if n not in clashes]
            if entry.main in clashes:
                instead = f"declared as {free[0]}" if free else "find it by name at run time"
                lines.append(f"/* {entry.main}: another library has a function of this name; {instead}. */")
            lines += declarations(entry, free[:1], macros)
            if others := free[1:]:
                lines += ["#ifdef VEXLOR32_ALL_NAMES"] + declarations(entry, others, macros) + ["#endif"]
            lines.append("")
    return "\n".join(lines) + TAIL
