"""The command-line host as people and scripts use it: what it prints, what it refuses and with which exit code."""
import json
import os
import re
import shutil
import subprocess
import tempfile
import threading
import unittest

from build import NATIVE, entries
from test_tables import Table

PROGRAM = NATIVE / "vexlor"
DONE, NO_LIBRARY, USAGE = 0, 1, 2


def run(*arguments, feed=b"", program=PROGRAM):
    """(exit code, output, errors) of a run. It has no terminal and no display, so nothing can be shown on them."""
    environment = {k: v for k, v in os.environ.items() if k not in ("DISPLAY", "WAYLAND_DISPLAY")}
    done = subprocess.run([program, *arguments], input=feed, capture_output=True, env=environment, start_new_session=True,
                          timeout=120)
    return done.returncode, done.stdout, done.stderr.decode("utf-8", "replace")


class Host(unittest.TestCase):
    def printed(self, *arguments, feed=b""):
        code, output, errors = run(*arguments, feed=feed)
        self.assertEqual((code, errors), (DONE, ""), arguments)
        return output

    def printed_json(self, *arguments, feed=b""):
        return json.loads(self.printed("--json", *arguments, feed=feed))

    def refuses(self, code, pieces, *arguments, feed=b""):
        got, output, errors = run(*arguments, feed=feed)
        self.assertEqual((got, output), (code, b""), (arguments, errors))
        self.assertTrue(errors.startswith("vexlor: "), errors)
        for piece in pieces:
            self.assertIn(piece, errors, arguments)


# (arguments, output)
HUMAN = [
    (["AllTrim", "  a b "], '"a b"'),
    (["_alltrim", ""], '""'),
    (["stralltrim", " ab "], 'result  2\ndest    "ab"'),
    (["ChrTrim", "--a--", "-", "-1"], '"a--"'),
    (["ChrTrim", "--json", "-", "0"], '"json"'),
    (["ChrTrim", "-e", "e", "0x1"], '"-"'),
    (["--", "AllTrim", " x"], '"x"'),
    (["--in-place", "AllTrim", " x "], '"x"'),
    (["--in-place", "LTrim", " x"], 'result  NULL\ntext    "x"'),
    (["--in-place", "UnTrim", "ab", "300", "."], '"ab' + 298 * "." + '"'),
    (["UnTrim", "@null", "5", "."], 'result  ""\ndest    ""'),
    (["-e", "UnTrim", r"\x40null", "6", "."], '"@null."'),
    (["StrCenter", "ab", "6", "@null"], '"  ab  "'),
    (["StrEmpty", "@null"], "0"),
    (["StrnSet", "x", "3"], 'result  ""  at text + 3\ntext    "xxx"'),
    (["StrnSet", "x", "-1"], '""'),
    (["--set", "dest=kept", "RJust", "@null"], '"kept"'),
    (["--set", "dest=@null", "Center", "ab", "6", "."], "NULL"),
    (["ChrUpper", "a"], "65  'A'"),
    (["ChrUpper", "0x61"], "65  'A'"),
    (["ChrUpper", "#97"], "65  'A'"),
    (["ChrUpper", "7"], "55  '7'"),
    (["ChrUpper", "#"], "35  '#'"),
    (["-e", "ChrUpper", r"\n"], r"10  '\n'"),
    (["ChrUpper", "'"], "39  '''"),
    (["IsAlpha", "ab1", "2"], "1"),
    (["IsAlpha", "ab1", "3"], "0"),
    (["IsAlpha", "ab1", "2147483647"], "0"),
    (["IsAlpha", "ab1", "4294967295"], "1"),  # -1: no character is looked at
    (["IsAlpha", "ab1", "-2147483648"], "1"),
    (["-e", "AllTrim", r" \ta\n\"\\ "], r'"\ta\n\"\\"'),
    (["AllTrim", r" \t "], r'"\\t"'),
    (["AllTrim", "Grüße"], '"Grüße"'),
    (["-e", "AllTrim", r"\xc3\xbc\xfc"], r'"\xc3\xbc\xfc"'),
    (["-e", "AllTrim", r"\xc2\x9b"], r'"\xc2\x9b"'),
    (["VEXVERSION"], "199"),
    (["VEXDEV", "any", "-1", ""], "1"),
]

# Functions whose families may not be part of the library yet: (function, arguments, output)
MORE_KINDS = [
    ("ChrSort", ["ChrSort", "bca", "0"], '"abc"'),
    ("ChrSort", ["--in-place", "ChrSort", "bca", "1"], '"cba"'),
    ("strchrsort", ["strchrsort", "bca", "0"], 'result  3\ntext    "abc"'),
    ("ChrSort", ["--raw", "ChrSort", "bca", "0"], "abc"),
    ("ChrSort", ["ChrSort", "@null", "0"], "NULL"),
    ("TokenInfo", ["TokenInfo", "one,two", ",", "2"], 'position  5\nlength    3\ndest      "two"'),
    ("TokenInfo", ["--set", "position=@null", "TokenInfo", "one,two", ",", "-2"], 'length  3\ndest    "one"'),
    ("TokenInfo", ["--raw", "TokenInfo", "one,two", ",", "2"], "two"),
    ("_blob2byte", ["_blob2byte", "abc", "-2147483"], "0"),  # zeros lie in front
]

RAW = [
    (["AllTrim", "  x "], b"x\n"),
    (["stralltrim", " ab "], b"2\n"),
    (["--in-place", "LTrim", " x"], b"x\n"),
    (["StrnSet", "x", "3"], b"xxx\n"),
    (["ChrUpper", "a"], b"65\n"),
    (["-e", "AllTrim", r"\xff\x01"], b"\xff\x01\n"),
    (["--set", "dest=@null", "Center", "ab", "6", "."], b"\n"),
]

# (arguments, object)
JSON = [
    (["AllTrim", " a "], {"name": "AllTrim", "result": "a", "outputs": {"dest": "a"}}),
    (["alltrim", " a "], {"name": "alltrim", "result": "a", "outputs": {"dest": "a"}}),
    (["--in-place", "LTrim", " a"], {"name": "LTrim", "result": None, "outputs": {"text": "a"}}),
    (["strltrim", " a"], {"name": "strltrim", "result": 1, "outputs": {"dest": "a"}}),
    (["StrnSet", "x", "2"], {"name": "StrnSet", "result": "", "within": {"argument": "text", "offset": 2}, "outputs": {"text": "xx"}}),
    (["ChrUpper", "a"], {"name": "ChrUpper", "result": 65, "outputs": {}}),
    (["-e", "AllTrim", r"\xe9\n"], {"name": "AllTrim", "result": {"text": "é\n", "hex": "e90a"}, "outputs": {"dest": {"text": "é\n", "hex": "e90a"}}}),
]

# (exit code, arguments, pieces of the message)
REFUSED = [
    (USAGE, [], ["name of a function is missing"]),
    (USAGE, ["--bogus", "AllTrim", "x"], ["--bogus"]),
    (USAGE, ["--library"], ["--library"]),
    (USAGE, ["AllTrm", "x"], ['"AllTrm"', "did you mean AllTrim"]),
    (USAGE, ["ALLTRIM", "x"], ["did you mean AllTrim"]),
    (USAGE, ["Qqqqqqqqqqqqqqqqqqqqqq"], ["--list"]),
    (USAGE, ["--explain", "trimpunc"], ["TrimPunct"]),
    (USAGE, ["--explain"], ["--explain takes"]),
    (USAGE, ["--list", "no such words"], ['"no such words"']),
    (USAGE, ["AllTrim"], ["takes 1 argument, not 0", "char *AllTrim(const char *text, char *dest);", "vexlor AllTrim TEXT"]),
    (USAGE, ["ChrTrim", "a", "b"], ["takes 3 arguments, not 2", "mode  VX_TRIM_BOTH (0)"]),
    (USAGE, ["VEXVERSION", "1"], ["takes no arguments, not 1"]),
    (USAGE, ["AllTrim", "x", "--json"], ["--json is an option only before AllTrim"]),
    (USAGE, ["ChrTrim", "a", "b", "c"], ["argument mode", "32-bit number", '"c"', "VX_TRIM_BOTH (0)"]),
    (USAGE, ["ChrTrim", "a", "b", "@null"], ["argument mode"]),
    (USAGE, ["ChrTrim", "a", "b", "4294967296"], ["argument mode"]),
    (USAGE, ["ChrTrim", "a", "b", "-2147483649"], ["argument mode"]),
    (USAGE, ["ChrTrim", "a", "b", "99999999999999999999"], ["argument mode"]),
    (USAGE, ["ChrTrim", "a", "b", "1 "], ["argument mode"]),
    (USAGE, ["ChrTrim", "a", "b", "0x"], ["argument mode"]),
    (USAGE, ["ChrTrim", "a", "b", "--1"], ["argument mode"]),
    (USAGE, ["ChrTrim", "a", "b", ""], ["argument mode"]),
    (USAGE, ["ChrUpper", "ab"], ["argument c", "one character", "#42"]),
    (USAGE, ["ChrUpper", "é"], ["argument c", '"é"']),
    (USAGE, ["ChrUpper", ""], ["argument c"]),
    (USAGE, ["ChrUpper", "#x"], ["argument c"]),
    (USAGE, ["UnTrim", "a", "2147483647", "."], ["2147483648 bytes", "dest", "1 GiB"]),
    (USAGE, ["Replicate", "ab" * 1000, "2000000000"], ["4000000000001 bytes"]),
    (USAGE, ["--in-place", "Center", "a", "5", "."], ["does not work in place"]),
    (USAGE, ["--set", "mode=1", "ChrTrim", "a", "b", "0"], ["mode"]),
    (USAGE, ["--set", "dest", "AllTrim", "a"], ["ARGUMENT=TEXT"]),
    (USAGE, ["-e", "AllTrim", r"a\q"], [r"\q"]),
    (USAGE, ["-e", "AllTrim", r"\x4"], [r"\x4"]),
    (USAGE, ["-e", "AllTrim", "\\"], ["escape"]),
    (USAGE, ["--lines", "AllTrim", "x"], ["{}"]),
    (NO_LIBRARY, ["--library", "/nowhere/lib.so", "AllTrim", "x"], ["/nowhere/lib.so"]),
    (NO_LIBRARY, ["--library", "libm.so.6", "AllTrim", "x"], ["libm.so.6 has no function AllTrim"]),
]


class Calls(Host):
    def test_for_people(self):
        for arguments, expected in HUMAN:
            with self.subTest(arguments=arguments):
                self.assertEqual(self.printed(*arguments).decode(), expected + "\n")

    def test_kinds_of_arguments_of_further_families(self):
        names = {name for _, _, all_of_it in entries() for name in all_of_it}
        for name, arguments, expected in MORE_KINDS:
            with self.subTest(arguments=arguments):
                if name not in names:
                    print(f"not tested: {' '.join(arguments)}: the library has no {name} yet", flush=True)
                    continue
                self.assertEqual(self.printed(*arguments).decode(), expected + "\n")

    def test_for_scripts(self):
        for arguments, expected in RAW:
            with self.subTest(arguments=arguments):
                self.assertEqual(self.printed("--raw", *arguments), expected)

    def test_for_programs(self):
        for arguments, expected in JSON:
            with self.subTest(arguments=arguments):
                self.assertEqual(self.printed_json(*arguments), expected)

    def test_refusals(self):
        for code, arguments, pieces in REFUSED:
            with self.subTest(arguments=arguments):
                self.refuses(code, pieces, *arguments)

    def test_quoted_text_reads_back(self):
        every_byte = bytes(range(1, 256))
        escaped = "".join(f"\\x{b:02X}" for b in every_byte)
        for text in (escaped, r"\x3f\x3f(\"\\n\")", "ü\x01€"):
            shown = self.printed("-e", "Replicate", text, "1").decode()
            self.assertRegex(shown, r'\A"[^\x00-\x1f\x7f]*"\n\Z')
            raw = self.printed("-e", "--raw", "Replicate", text, "1")
            self.assertEqual(self.printed("-e", "--raw", "Replicate", shown[1:-2], "1"), raw)
        self.assertEqual(self.printed("-e", "--raw", "Replicate", escaped, "1"), every_byte + b"\n")

    def test_help_and_version(self):
        self.assertRegex(self.printed("--version"), rb"\Avexlor \d+\.\d+\n\Z")
        text = self.printed("--help").decode()
        self.assertEqual(text, self.printed("-h").decode())
        shown = [line.split("vexlor ", 1)[1] for line in text.partition("Examples:")[2].splitlines() if "vexlor " in line]
        self.assertGreater(len(shown), 5)
        with tempfile.TemporaryDirectory() as folder:
            Table(f"{folder}/CUSTOMER.DBF", b"NAME,C,20").__exit__()
            for line in shown:
                with self.subTest(example=line):
                    line = re.sub(r"< \S+|\)$", "", line)
                    done = subprocess.run(f"{PROGRAM} {line}", shell=True, capture_output=True, stdin=subprocess.DEVNULL,
                                          cwd=folder)
                    self.assertEqual((done.returncode, done.stderr), (DONE, b""))


class Tables(Host):
    FIELDS = ["NAME", "AMOUNT", "NOTE"]
    ROWS = [["Anna", "12.50", "short"], ["deleted", "1.00", ""], ["M\xfcller", "-3.00", "one\r\ntwo " + "x" * 100]]

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.file = f"{folder.name}/t.dbf"
        with Table(self.file, b"NAME,C,10:AMOUNT,N,8,2:NOTE,M") as table:
            for row in self.ROWS:
                table.append(self.FIELDS, row)
                if row[0] == "deleted":
                    table.library.DbfDelete(table.handle)

    def test_for_people(self):
        lines = self.printed("--table", "--deleted", self.file).decode().splitlines()
        self.assertEqual(lines[0], f"{self.file}: 3 records of 28 bytes")
        self.assertEqual(lines[1:4], ["  NAME        C  10", "  AMOUNT      N  8,2", "  NOTE        M  10"])
        self.assertEqual(lines[5:], ["         NAME          AMOUNT  NOTE",
                                     "     1   Anna           12.50  short",
                                     "     2*  deleted         1.00",
                                     "     3   M\u00fcller         -3.00  one  two " + "x" * 29 + ".."])
        live = self.printed("--table", self.file).decode().splitlines()
        self.assertEqual(live, [line for line in lines if "deleted" not in line])

    def test_for_programs(self):
        records = [json.loads(line) for line in self.printed("--json", "--table", "--deleted", self.file).splitlines()]
        self.assertEqual([(r["record"], r["deleted"]) for r in records], [(1, False), (2, True), (3, False)])
        name = records[2]["fields"].pop("NAME")
        self.assertEqual(name, {"text": "M\xfcller", "hex": "4dfc6c6c6572"})
        self.assertEqual(list(records[0]["fields"].values()), self.ROWS[0])
        self.assertEqual(list(records[2]["fields"].values()), self.ROWS[2][1:])

    def test_refusals(self):
        self.refuses(NO_LIBRARY, ["cannot open", "error 2"], "--table", self.file + "x")
        self.refuses(USAGE, ["--table takes"], "--table")


class Loading(Host):
    def test_the_library_beside_the_program_or_the_named_one(self):
        with tempfile.TemporaryDirectory() as folder:
            program = shutil.copy(PROGRAM, folder)
            code, _, errors = run("AllTrim", "x", program=program)
            self.assertEqual(code, NO_LIBRARY)
            self.assertIn("libvexlor32.so", errors)
            self.assertEqual(run("--library", NATIVE / "libvexlor32.so", "--raw", "AllTrim", " x", program=program)[:2], (DONE, b"x\n"))
            os.symlink(NATIVE / "libvexlor32.so", os.path.join(folder, "libvexlor32.so"))
            self.assertEqual(run("--raw", "AllTrim", " x", program=program)[:2], (DONE, b"x\n"))

    def test_a_full_disk_is_no_success(self):
        with open("/dev/full", "wb") as full:
            done = subprocess.run([PROGRAM, "AllTrim", "x"], stdout=full, stderr=subprocess.PIPE)
        self.assertEqual(done.returncode, NO_LIBRARY)
        self.assertIn(b"cannot write", done.stderr)


# (arguments, standard input, output)
LINES = [
    (["AllTrim", "{}"], b"  a \nb\n\n c", b"a\nb\n\nc\n"),
    (["AllTrim", "{}"], b"", b""),
    (["AllTrim", "{}"], b"\n", b"\n"),
    (["AllTrim", "<{}> {} "], b"a\n b\n", b"<a> a\n< b>  b\n"),
    (["AllTrim", "{}"], b"@null\n", b"@null\n"),
    (["-e", "AllTrim", r"\x40{}"], b"\\n\n", b"@\\n\n"),
    (["Replicate", "ab", "{}"], b"2\n0\n1", b"abab\n\nab\n"),
    (["Replicate", "ab", "1{}"], b"\n1\n", b"ab\n" + 11 * b"ab" + b"\n"),
    (["ChrUpper", "{}"], b"a\n#98\n", b"65\n66\n"),
    (["--in-place", "UnTrim", "{}", "3", "."], b"a\nabcdef\n", b"a..\nabc\n"),
    (["--json", "AllTrim", "{}"], b" a\n", b'{"name":"AllTrim","result":"a","outputs":{"dest":"a"}}\n'),
]


class Lines(Host):
    def test_each_line_is_a_call(self):
        for arguments, feed, expected in LINES:
            with self.subTest(arguments=arguments, feed=feed):
                self.assertEqual(self.printed("--lines", *arguments, feed=feed), expected)

    def test_a_wrong_line_is_named_after_those_before_it(self):
        code, output, errors = run("--lines", "Replicate", "ab", "{}", feed=b"1\n2\nx\n3\n")
        self.assertEqual((code, output), (USAGE, b"ab\nabab\n"))
        self.assertIn("line 3", errors)
        self.assertIn("argument count", errors)

    def test_answers_before_the_input_ends(self):
        with subprocess.Popen([PROGRAM, "--lines", "AllTrim", "{}"], stdin=subprocess.PIPE, stdout=subprocess.PIPE) as host:
            watchdog = threading.Timer(60, host.kill)
            watchdog.start()
            self.addCleanup(watchdog.cancel)
            for line in (b"  one\n", b"  two\n"):
                host.stdin.write(line)
                host.stdin.flush()
                self.assertEqual(host.stdout.readline(), line.lstrip())
            host.stdin.close()
            self.assertEqual(host.wait(timeout=60), DONE)

    def test_lines_that_span_reads(self):
        lines = [b"x" * length for length in (65535, 65536, 0, 1, 200000, 65534)]
        self.assertEqual(self.printed("--lines", "AllTrim", "{}", feed=b"\n".join(lines)), b"".join(line + b"\n" for line in lines))

    def test_json_has_utf8_as_text_and_all_else_as_bytes(self):
        """All pairs of bytes, and longer sequences at the edges of UTF-8, against Python's decoder."""
        edges = "c280 dfbf e0a080 e09fbf ed9fbf eda080 ee8080 efbfbf f0908080 f08fbfbf f48fbfbf f4908080 f5808080 e282 f09f98 e28228 c080 ff"
        texts = [bytes.fromhex(edge) for edge in edges.split()] + [b"a" + bytes.fromhex(edge) + b"z" for edge in edges.split()]
        texts += [bytes([a, b]) for a in range(1, 256) for b in range(1, 256) if a != 10 and b != 10]
        output = self.printed("--json", "--lines", "Replicate", "{}", "1", feed=b"\n".join(texts)).splitlines()
        self.assertEqual(len(output), len(texts))
        for text, line in zip(texts, output):
            result = json.loads(line)["result"]
            try:
                self.assertEqual(result, text.decode("utf-8"), text)
            except UnicodeDecodeError:
                self.assertEqual(result, {"text": text.decode("latin-1"), "hex": text.hex()}, text)


class Catalog(Host):
    @classmethod
    def setUpClass(cls):
        cls.listed = json.loads(run("--list", "--json")[1])
        cls.functions = [f for family in cls.listed["families"] for f in family["functions"]]

    def test_list_is_the_table(self):
        listed = [(f["family"], 4 * len(f["arguments"]), f["names"]) for f in self.functions]
        self.assertEqual(listed, list(entries()))
        for function in self.functions:
            with self.subTest(function=function["name"]):
                self.assertEqual(function["name"], function["names"][0])
                self.assertTrue(function["does"] and function["result"]["meaning"])
                self.assertIn(f"{function['name']}(", function["declaration"])
                self.assertTrue(all(a["meaning"] for a in function["arguments"]))

    def test_every_function_is_explained_under_its_last_name(self):
        for function in self.functions:
            with self.subTest(function=function["name"]):
                self.assertEqual(json.loads(self.printed("--explain", function["names"][-1], "--json")), function)

    def test_relatives_refer_to_each_other(self):
        by_name = {f["name"]: f for f in self.functions}
        for there, back in (("lengthForm", "pointerForm"), ("zeroBasedTwin", "oneBasedTwin")):
            for function in self.functions:
                for key, other in ((there, back), (back, there)):
                    if function[key]:
                        self.assertEqual(by_name[function[key]][other], function["name"])
        self.assertEqual(by_name["AllTrim"]["lengthForm"], "stralltrim")

    def test_text_lists_are_aligned_and_chosen(self):
        everything = self.printed("--list").decode().splitlines()
        rows = [line for line in everything if line.startswith("  ")]
        self.assertEqual([row.split()[0] for row in rows], [f["name"] for f in self.functions])
        width = max(len(f["name"]) for f in self.functions)
        for row, function in zip(rows, self.functions):
            self.assertEqual(row, f"  {function['name']:{width}}  {function['does']}")
        trim = [f["name"] for f in self.functions if f["family"] == "trim"]
        for wanted, names in ((["trim"], trim), (["TRIM"], trim), (["Fill", "character,"], ["SetFillChar"]), (["dcompress"], ["Decompress", "FDecompress"])):
            rows = [line.split()[0] for line in self.printed("--list", *wanted).decode().splitlines() if line.startswith("  ")]
            self.assertEqual(rows, names, wanted)

    def test_explanation_for_people(self):
        text = self.printed("--explain", "_chrtrim").decode()
        for piece in ("ChrTrim: The text without", "char *ChrTrim(const char *text, const char *set, int32_t mode, char *dest);",
                      "vexlor ChrTrim TEXT SET MODE", "  mode  VX_TRIM_BOTH (0)", "[supplied by vexlor]", "dest, or text when dest is NULL",
                      "ChrTrim, _chrtrim, chrtrim", "strchrtrim, StrChrTrim", "Trimming and padding (trim)"):
            self.assertIn(piece, text)
        self.assertIn("Writes no terminator", self.printed("--explain", "LJust").decode())


if __name__ == "__main__":
    unittest.main()
