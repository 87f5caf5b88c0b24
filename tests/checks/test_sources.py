"""Rules for the sources that no compiler keeps. Each is tried on this tree and on a small wrong one with which it must find fault."""
import concurrent.futures
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

from build import NATIVE, ROOT

sys.path.insert(0, str(ROOT / "scripts"))
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
               "--language=c++", "--quiet", f"--suppressions-list={ROOT / 'tests' / 'checks' / 'cppcheck.txt'}",
               "--template={file}:{line}: {id}: {message}", "-Isrc", "-I.", f"-I{generated}"]
    cache.mkdir(parents=True, exist_ok=True)
    areas = [area for area in ("src", "catalog", "rows", "cli") if (root / area).is_dir()]
    done = subprocess.run([*map(str, command), *areas], cwd=root, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    return done.stderr.splitlines() + ([done.stdout] if done.returncode else [])


class ThisTree(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.tree = Tree(ROOT)
        assert len(cls.tree.texts) > 300

    def test_families_stay_behind_the_seam(self):
        self.assertEqual([*past_the_seam(self.tree)], [])

    def test_arrows_point_down(self):
        self.assertEqual([*upward(self.tree), *circles(self.tree)], [])

    def test_headers_are_self_contained(self):
        self.assertEqual([*own_header_later(self.tree), *not_self_contained(self.tree, NATIVE / "headers", NATIVE / "generated")], [])

    @unittest.skipUnless(shutil.which("cppcheck"), "cppcheck is not installed")
    def test_cppcheck_finds_nothing(self):
        self.assertEqual(cppcheck(ROOT, NATIVE / "cppcheck", NATIVE / "generated"), [])

    def test_changelog_begins_with_this_version(self):
        version = re.search(r'VX_VERSION_FULL "(.*)"', (NATIVE / "generated" / "version.h").read_text())[1]
        self.assertRegex(re.search(r"^## .*", (ROOT / "CHANGELOG.md").read_text(), re.MULTILINE)[0], rf"^## {version}, \d{{4}}-\d\d-\d\d$")


# A rule, files that break it, and a piece of each complaint.
PLANTED = [
    (past_the_seam, {"src/strings/a.cpp": "#include <unistd.h>\n"}, ["<unistd.h> belongs behind the seam"]),
    (past_the_seam, {"src/strings/a.cpp": "#include <thread>\n#include <vector>\n"}, ["<thread> belongs"]),
    (past_the_seam, {"src/strings/a.cpp": "#if defined(_WIN32)\n#endif\n"}, ["asks for the system (_WIN32)"]),
    (past_the_seam, {"src/platform/linux/a.cpp": "#include <unistd.h>\n#ifdef __linux__\n#endif\n"}, []),
    (upward, {"src/platform/a.cpp": '#include "frame/b.h"\n', "src/frame/b.h": ""}, ["includes src/frame/b.h"]),
    (upward, {"src/frame/a.h": '#include "strings/b.h"\n', "src/strings/b.h": ""}, ["includes src/strings/b.h"]),
    (upward, {"src/strings/a.h": '#include "rows/b.h"\n', "rows/b.h": ""}, ["includes rows/b.h"]),
    (upward, {"src/files/a.h": '#include "platform/linux/b.h"\n', "src/platform/linux/b.h": ""}, ["which is one system's"]),
    (upward, {"catalog/a.h": '#include "rows/b.h"\n', "rows/b.h": '#include "catalog/a.h"\n'}, ["catalog/a.h: includes rows/b.h"]),
    (circles, {"src/a/a.h": '#include "b/b.h"\n', "src/b/b.h": "", "src/b/c.h": '#include "a/d.h"\n', "src/a/d.h": ""}, ["src/a -> src/b -> src/a"]),
    (circles, {"src/a/a.h": '#include "a/b.h"\n', "src/a/b.h": '#include "a/a.h"\n'}, ["src/a/a.h -> src/a/b.h -> src/a/a.h"]),
    (own_header_later, {"src/a/a.h": "", "src/a/a.cpp": '#include <vector>\n#include "a/a.h"\n'}, ["includes vector before its own"]),
]


class WrongTree(unittest.TestCase):
    """Each rule finds the fault that it is for."""

    def planted(self, files):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        root = pathlib.Path(folder.name)
        for name, text in files.items():
            (root / name).parent.mkdir(parents=True, exist_ok=True)
            (root / name).write_text(text)
        return root

    def test_rules(self):
        for rule, files, pieces in PLANTED:
            with self.subTest(rule=rule.__name__, files=files):
                complaints = [*rule(Tree(self.planted(files)))]
                self.assertEqual(len(complaints), len(pieces), complaints)
                for complaint, piece in zip(complaints, pieces):
                    self.assertIn(piece, complaint)

    def test_a_header_that_needs_another_before_it(self):
        root = self.planted({"src/a/a.h": '#pragma once\n#include "a/b.h"\n', "src/a/b.h": "struct B;\n"})
        tree = Tree(root)
        self.assertEqual(not_self_contained(tree, root / "stamps", root), [])
        (root / "src/a/b.h").write_text("inline std::string b();\n")
        self.assertEqual([c.split(":")[0] for c in not_self_contained(tree, root / "stamps", root)], ["src/a/a.h", "src/a/b.h"])

    @unittest.skipUnless(shutil.which("cppcheck"), "cppcheck is not installed")
    def test_cppcheck(self):
        root = self.planted({"src/a/a.cpp": "int a() { int i[2] = {1, 2}; return i[2]; }\n"})
        self.assertIn("arrayIndexOutOfBounds", "".join(cppcheck(root, root / "cache", root)))
