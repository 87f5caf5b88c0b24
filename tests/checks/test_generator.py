"""What the generator says of a wrong table: the file, the line, and the mistake."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

from build import ROOT

SOUND = """title = "Samples"
area = "strings"

[First]
names = "first"
args = ["text: str", "dest: dest[len(text) + 1]"]
returns = "dest"
does = "Copies."
examples = ['First "a" -> "a"']
[Second]
args = ["count: int - VX_MODE_ALL, or another VX_MODE_..."]
returns = "int - the number"
does = "Counts."
examples = ['Second 1 -> 1']
"""
CONSTANTS = """[modes]
title = "Modes"
does = "for Second"
values = ["VX_MODE_NONE = -1 - none", "VX_MODE_ALL = 0x10 - all"]
"""

# (what is replaced, by what, the line that must be named, a piece of the message)
FAULTS = [
    ('count: int - VX_MODE_ALL, or another VX_MODE_...', 'count: int', 11, "`count` is a number without a meaning"),
    ('VX_MODE_ALL', 'VX_MODE_AL', 11, "no constant is called `VX_MODE_AL`"),
    ('VX_MODE_...', 'VX_FLAG_...', 11, "no constant is called `VX_FLAG_...`"),
    ('int - the number', 'int', 12, "`returns` says no more than int"),
    ('int - the number', 'handle', 12, "`returns` says no more than handle"),
    ('int - the number', 'int - -1 on failure', 12, "`returns` says no more than -1 on failure"),
    ('returns = "dest"', 'returns = "dest"\nlength = "strfirst"\nlength-by-hand = true', 8, "`length-returns` is missing"),
    ('returns = "dest"', 'returns = "inside"\nlength = "strfirst"', 8, "`length-returns` is missing"),
    ('returns = "dest"', 'returns = "dest"\nlength-returns = "0"', 8, "no length form"),
    ('count: int', 'count: integer', 11, "unknown kind `integer`"),
    ('count: int -', 'count = int -', 11, "cannot read the argument"),
    ('count: int -', 'count: int[5] -', 11, "has no room"),
    ('len(text) + 1]', 'len(txt) + 1]', 6, "len() takes one text argument"),
    ('len(text) + 1]', 'strlen(text)]', 6, "only numbers, arguments"),
    ('dest[len(text) + 1]', 'dest', 6, "needs its room"),
    ('"dest: dest', '"text: dest', 6, "two arguments are called `text`"),
    ('len(text) + 1]', 'len(text) + 1] in-place=other', 6, "no str argument"),
    ('len(text) + 1]', 'len(text) + 1] untouched-without=dest', 6, "no str argument"),
    ('count: int', 'count: block[1] before=size', 11, "which is no int"),
    ('len(text) + 1]', 'len(text) + 1] final', 6, "unknown flag `final`"),
    ('names = "first"', 'names = "first Second"', 10, "`Second` is already used by First (exports/sample.toml:4)"),
    ('names = "first"', 'names = "1st"', 5, "no name that a program could call"),
    ('names = "first"', 'nmaes = "first"', 5, "unknown key `nmaes`"),
    ('returns = "int -', 'returns = "integer -', 12, "unknown result `integer`"),
    ('the number"', 'the number"\nlength = "strsecond"', 13, "a length form needs a text result"),
    ('the number"', 'the number"\nzero = "_second"', 13, "needs a position"),
    ('does = "Counts."\n', '', 10, "`does` is missing"),
    ("examples = ['Second", "examples = ['First", 10, "Second: 0 examples"),
    ('[Second]', '[Second', 10, ""),
    ('title = "Samples"\n', '', 1, "`title` is missing"),
]


class Generator(unittest.TestCase):
    def run_on(self, table, constants=CONSTANTS):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            (root / "exports").mkdir()
            (root / "exports" / "sample.toml").write_text(table)
            (root / "exports" / "constants.toml").write_text(constants)
            (root / "exports" / "sample.md").write_text("Samples.")
            run = subprocess.run([sys.executable, ROOT / "exports" / "generator", "--root", root, "--out", root / "out"],
                                 stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
            header = root / "include" / "vexlor32.h"
            return run, header.read_text() if header.exists() else ""

    def test_a_sound_table_gives_its_products(self):
        run, header = self.run_on(SOUND)
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        self.assertIn("char *VEXLOR32_CALL First(const char *text, char *dest);", header)
        self.assertIn("VX_MODE_ALL (0x10), or another VX_MODE_...", header)
        self.assertIn("#define VX_MODE_NONE (-1) /* none */", header)

    def test_constants_are_checked(self):
        for old, new, message in (("0x10 - all", "0x10", "constants.toml:4: modes: `VX_MODE_ALL = 0x10` is not of the form"),
                                  ("VX_MODE_ALL", "VX_MODE_NONE", "constants.toml:4: modes: `VX_MODE_NONE = 0x10 - all` is named twice"),
                                  ("does =", "text =", "constants.toml:1: modes: a group has")):
            run, _ = self.run_on(SOUND, CONSTANTS.replace(old, new))
            self.assertEqual(run.returncode, 1)
            self.assertIn(message, run.stderr)

    def test_a_write_that_fails_leaves_the_file_as_it_was(self):
        sys.path.insert(0, str(ROOT / "exports" / "generator"))
        import writing
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "header.h"
            writing.write_if_changed(path, "whole")
            with self.assertRaises(UnicodeEncodeError):
                writing.write_if_changed(path, "half\udc80")
            self.assertEqual([(p.name, p.read_text()) for p in pathlib.Path(folder).iterdir()], [("header.h", "whole")])

    def test_what_is_told_in_words(self):
        by_hand = 'returns = "dest"\nlength = "strfirst"\nlength-by-hand = true\nlength-returns = "the count"'
        for old, new, told in (('returns = "dest"', by_hand, "/* As First, returning the count. */"),
                               ("dest[len(text) + 1]", "dest[max(host, 9): the value's length + 1]", "room: the value's length + 1")):
            self.assertIn(told, self.run_on(SOUND.replace(old, new))[1])

    def test_faults_are_named_with_file_and_line(self):
        for old, new, line, message in FAULTS:
            with self.subTest(fault=new):
                self.assertIn(old, SOUND)
                run, _ = self.run_on(SOUND.replace(old, new, 1))
                self.assertEqual(run.returncode, 1)
                self.assertTrue(run.stderr.startswith(f"exports/sample.toml:{line}: "), run.stderr)
                self.assertIn(message, run.stderr)
