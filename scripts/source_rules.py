"""Rules for the sources that no compiler keeps: each gives its complaints about a tree. The tests run them (test_sources.py)."""
import concurrent.futures
import os
import pathlib
import re
import shutil
import subprocess

from stamps import INCLUDE, Stamps

AREAS = ("src", "catalog", "rows", "cli", "fuzz", "tests", "bench", "examples")
SEAM = ("src/platform/", "src/attach/")
# Instructions of the processor, which every system has.
INTRINSICS = {"emmintrin.h", "wmmintrin.h"}
# Headers of the language through which one gets at the system all the same.
PAST_THE_SEAM = {"filesystem", "fstream", "iostream", "thread"}
ASKS_FOR_SYSTEM = re.compile(r"^\s*#\s*(?:el)?if.*\b(_WIN\d\d|__\w*(?:linux|unix|MINGW)\w*)\b", re.MULTILINE)
# The calling convention is the only difference that families would see, and it hides that.
MAY_ASK = {"src/frame/entry.h"}
# What may be included from where: the first that fits counts.
DOWNWARD = [
    ("src/platform/", ("src/platform/",)),
    ("src/frame/", ("src/frame/", "src/platform/")),
    ("src/", ("src/",)),
    ("catalog/", ("catalog/",)),
    ("rows/", ("rows/", "catalog/")),
    ("cli/", ("cli/", "rows/", "catalog/")),
    ("examples/", ("examples/", "include/")),
]
SYSTEMS = ("src/platform/linux/", "src/platform/windows/")
CROSS = shutil.which("i686-w64-mingw32-g++-win32")
COMPILED_ALONE = ("src/", "catalog/", "rows/", "cli/", "fuzz/")


class Tree:
    def __init__(self, root):
        self.root = root
        paths = [p for area in AREAS for p in (root / area).rglob("*") if p.suffix in (".h", ".cpp", ".c")]
        self.texts = {p.relative_to(root).as_posix(): p.read_text(encoding="utf-8") for p in paths}

    def system_includes(self, path):
        return [system for _, system in INCLUDE.findall(self.texts[path]) if system]

    def includes(self, path):
        """The files of this tree that the file includes; made ones are left out."""
        folder = path.rpartition("/")[0]
        for quoted, _ in INCLUDE.findall(self.texts[path]):
            yield from [c for c in (f"src/{quoted}", quoted, f"include/{quoted}", f"{folder}/{quoted}") if (self.root / c).is_file()][:1]


def past_the_seam(tree):
    for path, text in tree.texts.items():
        if not path.startswith("src/") or path.startswith(SEAM):
            continue
        for header in tree.system_includes(path):
            if "." in header and header not in INTRINSICS or header in PAST_THE_SEAM:
                yield f"{path}: <{header}> belongs behind the seam, src/platform"
        if path not in MAY_ASK and (found := ASKS_FOR_SYSTEM.search(text)):
            yield f"{path}: asks for the system ({found[1]}), which the seam is for"


def upward(tree):
    for path in tree.texts:
        allowed = next((below for prefix, below in DOWNWARD if path.startswith(prefix)), None)
        for included in tree.includes(path):
            if allowed and not included.startswith(allowed):
                yield f"{path}: includes {included}; its place includes {', '.join(allowed)} only"
            if path.startswith("src/") and not path.startswith(SEAM) and included.startswith(SYSTEMS):
                yield f"{path}: includes {included}, which is one system's"
            if included.startswith("src/attach/"):
                yield f"{path}: includes {included}, above which there is nothing"


def circle(edges):
    """Nodes that lead from one to the next and back to the first; none if the arrows go one way."""
    done = set()

    def visit(node, way):
        if node in way:
            return way[way.index(node):] + [node]
        if node in done:
            return []
        found = next((f for f in (visit(n, way + [node]) for n in sorted(edges.get(node, ()))) if f), [])
        done.add(node)
        return found

    return next((f for f in (visit(n, []) for n in sorted(edges)) if f), [])


def circles(tree):
    files = {path: set(tree.includes(path)) for path in tree.texts}
    folders = {}
    for path, included in files.items():
        folder = path.rpartition("/")[0] if path.startswith("src/") else path.partition("/")[0]
        others = {i.rpartition("/")[0] if i.startswith("src/") else i.partition("/")[0] for i in included}
        folders.setdefault(folder, set()).update(others - {folder})
    for edges in (files, folders):
        if found := circle(edges):
            yield f"a circle of includes: {' -> '.join(found)}"


def own_header_later(tree):
    """A header that its source includes before all others is self-contained, or the build fails."""
    for path, text in tree.texts.items():
        own = path.removesuffix(".cpp").removesuffix(".c") + ".h"
        if own != path and own in tree.texts and (first := INCLUDE.search(text)) and (not first[1] or not own.endswith(first[1])):
            yield f"{path}: includes {first[1] or first[2]} before its own header"


def not_self_contained(tree, stamps_folder, generated):
    """Headers without a source of their own, each compiled alone; those that have not changed since they passed are left out."""
    roots = [tree.root, tree.root / "src", tree.root / "include", generated]
    stamps = Stamps(stamps_folder, subprocess.run(["g++", "--version"], stdout=subprocess.PIPE, text=True).stdout, roots)

    def complaint(path):
        compiler = CROSS if "/windows/" in path else "g++"
        done = subprocess.run([compiler, "-w", "-x", "c++", "-std=c++20", "-fsyntax-only", *[f"-I{r}" for r in roots], tree.root / path],
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        if done.returncode:
            return f"{path}: does not compile alone\n{done.stdout[:1000]}"
        stamps.put(tree.root / path)
        return ""

    alone = [p for p in sorted(tree.texts) if p.endswith(".h") and p.startswith(COMPILED_ALONE) and p[:-2] + ".cpp" not in tree.texts]
    alone = [p for p in alone if (CROSS or "/windows/" not in p) and not stamps.has(tree.root / p)]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        return [c for c in pool.map(complaint, alone) if c]


def cppcheck(root, cache, generated):
    command = ["cppcheck", f"-j{os.cpu_count()}", f"--cppcheck-build-dir={cache}", "--enable=warning,performance,portability", "--std=c++20",
               "--language=c++", "--quiet", f"--suppressions-list={pathlib.Path(__file__).parent / 'cppcheck.txt'}",
               "--template={file}:{line}: {id}: {message}", "-Isrc", "-I.", f"-I{generated}"]
    cache.mkdir(parents=True, exist_ok=True)
    areas = [area for area in ("src", "catalog", "rows", "cli") if (root / area).is_dir()]
    done = subprocess.run([*map(str, command), *areas], cwd=root, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    return done.stderr.splitlines() + ([done.stdout] if done.returncode else [])
