"""Where the checks find what was built, and what the export table says of it."""
import os
import pathlib
import re
import subprocess
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
NATIVE = pathlib.Path(os.environ.get("VEXLOR_BUILD", ROOT / "build" / "native")).resolve()
LIBRARY = NATIVE / "libvexlor32.so"
DLLS = {bits: pathlib.Path(os.environ.get(f"VEXLOR_WIN{bits}_BUILD", ROOT / "build" / f"win{bits}") or "no-build").resolve() / f"Vexlor{bits}.dll"
        for bits in (32, 64)}


def needs_dll(bits):
    return unittest.skipUnless(DLLS[bits].exists(), f"the {bits}-bit Windows library was not built in this run")


def entries():
    """(family, bytes of arguments on a 32-bit stack, names) of each entry, as the table has it."""
    for line in (NATIVE / "generated" / "listing.txt").read_text().splitlines():
        family, size, *names = line.split()
        yield family, int(size), names


def all_names():
    return {name for _, _, names in entries() for name in names}


def clashes(section):
    """A section of exports/clashes.txt."""
    text = (ROOT / "exports" / "clashes.txt").read_text()
    return set(text.partition(f"\n[{section}]\n")[2].partition("[")[0].split())


def output(*command):
    return subprocess.run([str(c) for c in command], check=True, stdout=subprocess.PIPE, text=True, errors="replace").stdout


def dynamic_symbols(library):
    """Defined dynamic symbols, without the versions' own names."""
    lines = output("nm", "--dynamic", "--defined-only", "--format=posix", library).splitlines()
    symbols = [line.split()[:2] for line in lines]
    return {name.split("@")[0] for name, kind in symbols if kind != "A"}


def readme_programs():
    """The programs that the README shows for each language, by the names of their code blocks, and what they all print."""
    section = re.search(r"\n## In your language\n(.*?)\n## ", (ROOT / "README.md").read_text(), re.DOTALL).group(1)
    return dict(re.findall(r"^```(\w+)\n(.*?)^```", section, re.DOTALL | re.MULTILINE)), re.search(r"print `(.*)`", section).group(1) + "\n"
