"""The command-line host as people and scripts use it: what it prints, what it refuses and with which exit code."""
import json
import os
import re
import shlex
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

    def refuses(self, code, pieces, *arguments):
        got, output, errors = run(*arguments)
        self.assertEqual((got, output), (code, b""), (arguments, errors))
        self.assertTrue(errors.startswith("vexlor: "), errors)
        for piece in pieces:
            self.assertIn(piece, errors, arguments)


# Command lines, apart by |, with << what they read, and what each prints, lines apart by ¶, or with which exit code it is
# refused and pieces of the message; the next ones behind ;;.
TABLE = r"""
AllTrim '  a b ' => "a b"
stralltrim ' ab ' => result  2¶dest    "ab"
ChrTrim --a-- - -1 => "a--" ;; ChrTrim --json - 0 => "json" ;; ChrTrim -e e 0x1 => "-"
-- AllTrim ' x' => "x"
--in-place LTrim ' x' => result  NULL¶text    "x"
--in-place UnTrim ab 9 . => "ab......."
UnTrim @null 5 . => result  ""¶dest    ""
-e UnTrim \\x40null 6 . => "@null."
StrCenter ab 6 @null => "  ab  "
StrnSet x 3 => result  ""  at text + 3¶text    "xxx" ;; StrnSet x -1 => ""
--set dest=kept RJust @null => "kept" ;; --set dest=@null Center ab 6 . => NULL
ChrUpper a | ChrUpper 0x61 | ChrUpper '#97' => 65  'A' ;; ChrUpper 7 => 55  '7' ;; ChrUpper '#' => 35  '#'
-e ChrUpper \\n => 10  '\n'
ChrUpper "'" => 39  '''
IsAlpha ab1 2147483647 => 0
IsAlpha ab1 4294967295 | IsAlpha ab1 -2147483648 | VEXDEV any -1 '' => 1
-e AllTrim ' \ta\n\"\\ ' => "\ta\n\"\\"
AllTrim ' \t ' => "\\t" ;; AllTrim Grüße => "Grüße"
-e AllTrim \\xc3\\xbc\\xfc => "\xc3\xbc\xfc" ;; -e AllTrim \\xc2\\x9b => "\xc2\x9b"
--in-place ChrSort bca 1 => "cba"
strchrsort bca 0 => result  3¶text    "abc"
ChrSort @null 0 => NULL
TokenInfo one,two , 2 => position  5¶length    3¶dest      "two"
--set position=@null TokenInfo one,two , -2 => length  3¶dest    "one"
_blob2byte abc -2147483 => 0
--raw AllTrim '  x ' => x ;; --raw stralltrim ' ab ' => 2 ;; --raw --in-place LTrim ' x' => x
--raw StrnSet x 3 => xxx ;; --raw TokenInfo one,two , 2 => two ;; --raw --set dest=@null Center ab 6 . =>
--json alltrim ' a ' => {"name":"alltrim","result":"a","outputs":{"dest":"a"}}
--json --in-place LTrim ' a' => {"name":"LTrim","result":null,"outputs":{"text":"a"}}
--json strltrim ' a' => {"name":"strltrim","result":1,"outputs":{"dest":"a"}}
--json StrnSet x 2 => {"name":"StrnSet","result":"","within":{"argument":"text","offset":2},"outputs":{"text":"xx"}}
--lines AllTrim {} <<   a ¶b¶¶ c => a¶b¶¶c ;; --lines AllTrim {} << ¶ =>
--lines AllTrim '<{}> {} ' << a¶ b¶ => <a> a¶< b>  b ;; --lines AllTrim {} << @null¶ => @null
--lines -e AllTrim \\x40{} << \n¶ => @\n ;; --lines Replicate ab {} << 2¶0¶1 => abab¶¶ab
--lines Replicate ab 1{} << ¶1¶ => ab¶ababababababababababab
--lines ChrUpper {} << a¶#98¶ => 65¶66
--lines --in-place UnTrim {} 3 . << a¶abcdef¶ => a..¶abc
--lines --json AllTrim {} <<  a¶ => {"name":"AllTrim","result":"a","outputs":{"dest":"a"}}
!2 name of a function is missing
--bogus AllTrim x !2 --bogus
--library !2 --library
AllTrm x | ALLTRIM x !2 did you mean AllTrim
Qqqqqqqqqqqqqqqqqqqqqq !2 --list
--explain trimpunc !2 TrimPunct ;; --explain !2 --explain takes
--list 'no such words' !2 "no such words"
AllTrim !2 takes 1 argument, not 0¶char *AllTrim(const char *text, char *dest);¶vexlor AllTrim TEXT
ChrTrim a b !2 takes 3 arguments, not 2¶mode  VX_TRIM_BOTH (0)
VEXVERSION 1 !2 takes no arguments, not 1
AllTrim x --json !2 --json is an option only before AllTrim
ChrTrim a b c !2 argument mode¶32-bit number¶"c"¶VX_TRIM_BOTH (0)
ChrTrim a b @null | ChrTrim a b 4294967296 | ChrTrim a b -2147483649 | ChrTrim a b 99999999999999999999 !2 argument mode
ChrTrim a b '1 ' | ChrTrim a b 0x | ChrTrim a b --1 | ChrTrim a b '' !2 argument mode
ChrUpper ab !2 argument c¶one character¶#42 ;; ChrUpper é !2 argument c¶"é"
ChrUpper '' | ChrUpper '#x' !2 argument c
UnTrim a 2147483647 . !2 2147483648 bytes¶dest¶1 GiB
Replicate abcdefghij 2000000000 !2 20000000001 bytes
--in-place Center a 5 . !2 does not work in place
--set mode=1 ChrTrim a b 0 !2 mode ;; --set dest AllTrim a !2 ARGUMENT=TEXT
-e AllTrim a\\q !2 \q ;; -e AllTrim \\x4 !2 \x4 ;; -e AllTrim \\ !2 escape
--lines AllTrim x !2 {}
--library /nowhere/lib.so AllTrim x !1 /nowhere/lib.so
--library libm.so.6 AllTrim x !1 libm.so.6 has no function AllTrim
--table !2 --table takes
"""


class Calls(Host):
    def test_command_lines(self):
        for line in re.split(r" ;; |\n", TABLE.strip("\n")):
            commands, outcome, expected = re.fullmatch(r"(.*?) ?(=>|![12]) ?(.*)", line).groups()
            commands, _, feed = commands.partition(" << ")
            for command in commands.split(" | "):
                arguments, given = shlex.split(command), feed.replace("¶", "\n").encode()
                if outcome == "=>":
                    self.assertEqual(self.printed(*arguments, feed=given).decode(), expected.replace("¶", "\n") + "\n", line)
                else:
                    self.refuses(int(outcome[1]), expected.split("¶"), *arguments)

    def test_quoted_text_reads_back(self):
        every_byte = bytes(range(1, 256))
        for text in (every_byte, b"??(\"\\n\")", "ü\x01€".encode()):
            escaped = "".join(f"\\x{b:02X}" for b in text)
            shown = self.printed("-e", "Replicate", escaped, "1").decode()
            self.assertRegex(shown, r'\A"[^\x00-\x1f\x7f]*"\n\Z')
            for again in (escaped, shown[1:-2]):
                self.assertEqual(self.printed("-e", "--raw", "Replicate", again, "1"), text + b"\n")

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


class TablesAndLines(Host):
    ROWS = [["Anna", "12.50", "short"], ["deleted", "1.00", ""], ["M\xfcller", "-3.00", "one\r\ntwo " + "x" * 100]]

    def test_tables_for_people_and_programs(self):
        with tempfile.TemporaryDirectory() as folder:
            file = f"{folder}/t.dbf"
            with Table(file, b"NAME,C,10:AMOUNT,N,8,2:NOTE,M") as table:
                for row in self.ROWS:
                    table.append(dict(enumerate(row, 1)))
                    if row[0] == "deleted":
                        table.library.DbfDelete(table.handle)
            lines = self.printed("--table", "--deleted", file).decode().splitlines()
            live = self.printed("--table", file).decode().splitlines()
            records = [json.loads(line) for line in self.printed("--json", "--table", "--deleted", file).splitlines()]
            self.refuses(NO_LIBRARY, ["cannot open", "error 2"], "--table", file + "x")
        self.assertEqual(lines, [f"{file}: 3 records of 28 bytes", "  NAME        C  10", "  AMOUNT      N  8,2", "  NOTE        M  10",
                                 lines[4], "         NAME          AMOUNT  NOTE",
                                 "     1   Anna           12.50  short",
                                 "     2*  deleted         1.00",
                                 "     3   M\u00fcller         -3.00  one  two " + "x" * 29 + ".."])
        self.assertEqual(live, [line for line in lines if "deleted" not in line])
        self.assertEqual([(r["record"], r["deleted"]) for r in records], [(1, False), (2, True), (3, False)])
        self.assertEqual(records[2]["fields"].pop("NAME"), {"text": "M\xfcller", "hex": "4dfc6c6c6572"})
        self.assertEqual(list(records[0]["fields"].values()), self.ROWS[0])
        self.assertEqual(list(records[2]["fields"].values()), self.ROWS[2][1:])

    def test_the_library_beside_the_program_or_the_named_one(self):
        with tempfile.TemporaryDirectory() as folder:
            program = shutil.copy(PROGRAM, folder)
            code, _, errors = run("AllTrim", "x", program=program)
            self.assertEqual((code, "libvexlor32.so" in errors), (NO_LIBRARY, True))
            library = NATIVE / "libvexlor32.so"
            self.assertEqual(run("--library", library, "--raw", "AllTrim", " x", program=program)[:2], (DONE, b"x\n"))
            os.symlink(library, os.path.join(folder, "libvexlor32.so.5"))
            self.assertEqual(run("--raw", "AllTrim", " x", program=program)[:2], (DONE, b"x\n"))

    def test_a_full_disk_is_no_success(self):
        with open("/dev/full", "wb") as full:
            done = subprocess.run([PROGRAM, "AllTrim", "x"], stdout=full, stderr=subprocess.PIPE)
        self.assertEqual(done.returncode, NO_LIBRARY)
        self.assertIn(b"cannot write", done.stderr)

    def test_a_wrong_line_is_named_after_those_before_it(self):
        code, output, errors = run("--lines", "Replicate", "ab", "{}", feed=b"1\n2\nx\n3\n")
        self.assertEqual((code, output), (USAGE, b"ab\nabab\n"))
        self.assertIn("line 3", errors)
        self.assertIn("argument count", errors)

    def test_answers_before_the_input_ends(self):
        with subprocess.Popen([PROGRAM, "--lines", "AllTrim", "{}"], stdin=subprocess.PIPE, stdout=subprocess.PIPE) as host:
            watchdog = threading.Timer(60, host.kill)
            self.addCleanup(watchdog.cancel)
            watchdog.start()
            for line in (b"  one\n", b"  two\n"):
                host.stdin.write(line)
                host.stdin.flush()
                self.assertEqual(host.stdout.readline(), line.lstrip())
            host.stdin.close()
            self.assertEqual(host.wait(timeout=60), DONE)

    def test_lines_that_span_reads(self):
        self.assertEqual(self.printed("--lines", "AllTrim", "{}"), b"")
        lines = [b"x" * length for length in (65535, 65536, 0, 1, 200000, 65534)]
        self.assertEqual(self.printed("--lines", "AllTrim", "{}", feed=b"\n".join(lines)), b"".join(line + b"\n" for line in lines))

    def test_json_has_utf8_as_text_and_all_else_as_bytes(self):
        """All pairs of bytes, and longer sequences at the edges of UTF-8, against Python's decoder."""
        edges = [bytes.fromhex(edge) for edge in (
            "c280 dfbf e0a080 e09fbf ed9fbf eda080 ee8080 efbfbf f0908080 f08fbfbf f48fbfbf f4908080 f5808080 e282 f09f98 e28228 c080 ff").split()]
        texts = edges + [b"a" + edge + b"z" for edge in edges]
        texts += [bytes([a, b]) for a in range(1, 256) for b in range(1, 256) if a != 10 and b != 10]
        output = self.printed("--json", "--lines", "Replicate", "{}", "1", feed=b"\n".join(texts)).splitlines()
        for text, line in zip(texts, output, strict=True):
            try:
                expected = text.decode("utf-8")
            except UnicodeDecodeError:
                expected = {"text": text.decode("latin-1"), "hex": text.hex()}
            self.assertEqual(json.loads(line)["result"], expected, text)


class Catalog(Host):
    @classmethod
    def setUpClass(cls):
        cls.functions = [f for family in json.loads(run("--list", "--json")[1])["families"] for f in family["functions"]]

    def test_list_is_the_table_and_explains_each_name(self):
        self.assertEqual([(f["family"], 4 * len(f["arguments"]), f["names"]) for f in self.functions], list(entries()))
        by_name = {f["name"]: f for f in self.functions}
        for function in self.functions:
            with self.subTest(function=function["name"]):
                self.assertEqual(function["name"], function["names"][0])
                self.assertTrue(function["does"] and function["result"]["meaning"])
                self.assertIn(f"{function['name']}(", function["declaration"])
                self.assertTrue(all(a["meaning"] for a in function["arguments"]))
                self.assertEqual(json.loads(self.printed("--explain", function["names"][-1], "--json")), function)
                for there, back in (("lengthForm", "pointerForm"), ("zeroBasedTwin", "oneBasedTwin")):
                    for key, other in ((there, back), (back, there)):
                        self.assertTrue(not function[key] or by_name[function[key]][other] == function["name"], key)
        self.assertEqual(by_name["AllTrim"]["lengthForm"], "stralltrim")

    def test_text_lists_are_aligned_and_chosen(self):
        everything = self.printed("--list").decode().splitlines()
        width = max(len(f["name"]) for f in self.functions)
        self.assertEqual([line for line in everything if line.startswith("  ")],
                         [f"  {f['name']:{width}}  {f['does']}" for f in self.functions])
        trim = [f["name"] for f in self.functions if f["family"] == "trim"]
        for wanted, names in ((["trim"], trim), (["TRIM"], trim), (["Fill", "character,"], ["SetFillChar"]), (["dcompress"], ["Decompress", "FDecompress"])):
            rows = [line.split()[0] for line in self.printed("--list", *wanted).decode().splitlines() if line.startswith("  ")]
            self.assertEqual(rows, names, wanted)

    def test_explanation_for_people(self):
        text = self.printed("--explain", "_chrtrim").decode()
        for piece in """ChrTrim: The text without
            char *ChrTrim(const char *text, const char *set, int32_t mode, char *dest);
            vexlor ChrTrim TEXT SET MODE
            mode  VX_TRIM_BOTH (0)
            dest, or text when dest is NULL
            [supplied by vexlor]
            strchrtrim, StrChrTrim
            Trimming and padding (trim)""".split("\n"):
            self.assertIn(piece.strip(), text)
