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

[Second]
args = ["count: int"]
returns = "int"
does = "Counts."
"""

# (what is replaced, by what, the line that must be named, a piece of the message)
FAULTS = [
    ('count: int', 'count: integer', 11, "unknown kind `integer`"),
    ('count: int', 'count = int', 11, "cannot read the argument"),
    ('count: int', 'count: int[5]', 11, "has no room"),
    ('len(text) + 1]', 'len(txt) + 1]', 6, "len() takes one text argument"),
    ('len(text) + 1]', 'strlen(text)]', 6, "only numbers, arguments"),
    ('dest[len(text) + 1]', 'dest', 6, "needs its room"),
    ('"dest: dest', '"text: dest', 6, "two arguments are called `text`"),
    ('len(text) + 1]', 'len(text) + 1] in-place=other', 6, "no str argument"),
    ('len(text) + 1]', 'len(text) + 1] untouched-without=dest', 6, "no str argument"),
    ('len(text) + 1]', 'len(text) + 1] final', 6, "unknown flag `final`"),
    ('names = "first"', 'names = "first Second"', 10, "`Second` is already used by First (exports/sample.toml:4)"),
    ('names = "first"', 'names = "1st"', 5, "no name that a program could call"),
    ('names = "first"', 'nmaes = "first"', 5, "unknown key `nmaes`"),
    ('returns = "int"', 'returns = "integer"', 12, "unknown result `integer`"),
    ('returns = "int"', 'returns = "int"\nlength = "strsecond"', 13, "a length form needs a text result"),
    ('returns = "int"', 'returns = "int"\nzero = "_second"', 13, "needs a position"),
    ('does = "Counts."\n', '', 10, "`does` is missing"),
    ('[Second]', '[Third]', 10, "Third has no implementation: write ENTRY(int32_t, Third) in src/strings/sample.cpp"),
    ('[Second]', '[Second', 10, ""),
    ('title = "Samples"\n', '', 1, "`title` is missing"),
]


class Generator(unittest.TestCase):
    def run_on(self, table):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            (root / "exports").mkdir()
            (root / "src").mkdir()
            (root / "exports" / "sample.toml").write_text(table)
            (root / "exports" / "sample.md").write_text("Samples.")
            (root / "src" / "sample.cpp").write_text("ENTRY(char*, First)(const char*, char*) noexcept {}\nENTRY(int32_t, Second)(int32_t) noexcept {}\n")
            run = subprocess.run([sys.executable, ROOT / "exports" / "generator", "--root", root, "--out", root / "out"],
                                 stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
            header = root / "include" / "vexlor32.h"
            return run, header.read_text() if header.exists() else ""

    def test_a_sound_table_gives_its_products(self):
        run, header = self.run_on(SOUND)
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        self.assertIn("char *VEXLOR32_CALL First(const char *text, char *dest);", header)

    def test_a_room_may_be_told_in_words(self):
        _, header = self.run_on(SOUND.replace("dest[len(text) + 1]", "dest[max(host, 9): the value's length + 1]"))
        self.assertIn("room: the value's length + 1", header)

    def test_faults_are_named_with_file_and_line(self):
        for old, new, line, message in FAULTS:
            with self.subTest(fault=new):
                self.assertIn(old, SOUND)
                run, _ = self.run_on(SOUND.replace(old, new, 1))
                self.assertEqual(run.returncode, 1)
                self.assertTrue(run.stderr.startswith(f"exports/sample.toml:{line}: "), run.stderr)
                self.assertIn(message, run.stderr)


if __name__ == "__main__":
    unittest.main()
