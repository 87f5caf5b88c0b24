"""The rules for sources (scripts/source_rules.py), each on this tree and on a small wrong one with which it must find fault."""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

from build import NATIVE, ROOT

sys.path.insert(0, str(ROOT / "scripts"))
from source_rules import Tree, circles, cppcheck, not_self_contained, own_header_later, past_the_seam, upward


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

    @unittest.skipUnless(shutil.which("clang-tidy"), "clang-tidy is not installed (scripts/setup lint)")
    def test_clang_tidy_finds_nothing_in_what_was_written_last(self):
        if NATIVE != ROOT / "build" / "native":
            self.skipTest("clang-tidy looks at build/native")
        done = subprocess.run([sys.executable, ROOT / "scripts" / "lint", "--seconds", "10"], stdout=subprocess.PIPE, text=True)
        self.assertEqual(done.returncode, 0, done.stdout)

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
