"""Makes everything mechanical from the export table.

    python3 exports/generator --out DIR     products of the build into DIR, public header and reference pages into the tree
    python3 exports/generator --check       says which committed products differ from the table; writes nothing
"""
import argparse
import pathlib
import sys

import catalog
import examples
import header
import library
import pages
from languages import cpp, node, python
from table import TableError, read_table
from writing import write_if_changed

ROOT = pathlib.Path(__file__).resolve().parents[2]
# Sections of exports/clashes.txt: names that are macros elsewhere; and those that a Linux program's other libraries have.
MACROS = {"Windows macros"}
LINUX = {"Linux", "zlib", "readline"}


def clashing_names(sections):
    """The names under those headings of exports/clashes.txt that `sections` accepts."""
    names, heading = set(), ""
    for line in (ROOT / "exports" / "clashes.txt").read_text(encoding="utf-8").splitlines():
        if line.startswith("["):
            heading = line.strip("[]")
        elif line and not line.startswith("#") and sections(heading):
            names.add(line)
    return names


def committed_products(families, groups):
    macros = clashing_names(lambda heading: heading in MACROS)
    clashes = clashing_names(lambda heading: heading not in MACROS)
    products = {"include/vexlor32.h": header.header(families, groups, clashes, macros), "reference/README.md": pages.index(families),
                "reference/constants.md": pages.constants_page(groups)}
    products |= {f"reference/{f.stem}.md": pages.page(f) for f in families}
    return products


def build_products(families, root):
    # The lab library is the same code with one name more, through which tests reach the platform seam.
    products = {
        "mechanical.cpp": library.mechanical(families),
        "aliases.ld": library.elf_aliases(families),
        "versions.map": library.elf_versions(families),
        "versions-lab.map": library.elf_versions(families, ["vexlor32_seam"]),
        "versions-link.map": "VEXLOR32_1 { global: *; };\n",
        "link_stub.s": library.link_stub(families, clashing_names(lambda heading: heading in LINUX)),
        "catalog.cpp": catalog.catalog(families),
        "catalog_kinds.h": catalog.kinds_header(),
        "calls.h": catalog.calls(families),
        "listing.txt": catalog.listing(families),
    }
    for bits in (32, 64):
        products[f"vexlor{bits}.def"] = library.windows_def(families, bits)
        products[f"vexlor{bits}-lab.def"] = library.windows_def(families, bits, ["vexlor32_seam"])
        products[f"vexlor{bits}-import.def"] = library.import_def(families, bits, clashing_names(lambda heading: heading == "Windows"))
    products |= {f"entries/{f.stem}.h": library.declarations(f) for f in families}
    products |= {f"rows/{f.stem}.rows": examples.rows(f, root) for f in families}
    return products


def bindings(families, groups):
    """Declarations for other languages, beside what bindings/ has by hand: together they are what a language's programs use."""
    clashes = clashing_names(lambda heading: heading not in MACROS)
    folder = ROOT / "bindings"
    products = {f"bindings/{p.relative_to(folder)}": p.read_text(encoding="utf-8")
                for p in sorted(folder.rglob("*")) if p.is_file() and "__pycache__" not in p.parts}
    for language in (cpp, node, python):
        products |= {f"bindings/{name}": text for name, text in language.products(families, groups, clashes).items()}
    return products


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--out", type=pathlib.Path)
    parser.add_argument("--check", action="store_true")
    parser.add_argument("--root", type=pathlib.Path, default=ROOT, help="folder that holds exports/ and src/")
    options = parser.parse_args()
    try:
        families, groups = read_table(options.root)
        examples.check_rows(families, options.root)
    except TableError as error:
        print(error, file=sys.stderr)
        return 1
    committed = committed_products(families, groups)
    if options.check:
        stale = [n for n, text in committed.items() if not (options.root / n).exists() or (options.root / n).read_text(encoding="utf-8") != text]
        print("\n".join(f"{n}: differs from the table" for n in stale) or "all products agree with the table")
        return 1 if stale else 0
    if options.out:
        for name, text in (build_products(families, options.root) | bindings(families, groups)).items():
            write_if_changed(options.out / name, text)
        for name, text in committed.items():
            write_if_changed(options.root / name, text)
    return 0


sys.exit(main())
