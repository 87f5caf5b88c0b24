"""Tables exchanged with other programs: what the library writes, they read, and what they write, it reads."""
import ctypes
import json
import pathlib
import shutil
import subprocess
import tempfile
import unittest

from build import LIBRARY

STRUCTURE = b"NAME,C,20:AMOUNT,N,12,2:COUNT,N,6:BORN,D:PAID,L:NOTE,M"
FIELDS = ["NAME", "AMOUNT", "COUNT", "BORN", "PAID", "NOTE"]
# A memo of several blocks, one that fills its blocks exactly, an empty one, characters of the upper half.
ROWS = [
    ["Hartwell & Sons", "1234.56", "7", "19991231", "T", "Paid on account.\r\nSecond line."],
    ["O'Brien; \"Ltd\"", "-0.05", "-12", "20000229", "F", "x" * 1500],
    ["M\x81ller", "999999999.99", "999999", "19000101", "T", "y" * 511],
    ["nothing", "0.00", "0", "20261123", "F", ""],
]
DELETED = ["deleted", "1.00", "1", "20200202", "T", "gone"]


def peer(program):
    """The program's path; where it is missing the test is skipped, with the reason."""
    path = shutil.which(program, path="/usr/bin:/bin")
    if not path:
        raise unittest.SkipTest(f"{program} is not installed (scripts/setup test, as root)")
    return path


def output(*command, cwd):
    return subprocess.run([str(c) for c in command], cwd=cwd, check=True, stdout=subprocess.PIPE, timeout=60).stdout


class Table:
    """A table opened or made by the library."""
    library = ctypes.CDLL(str(LIBRARY))

    def __init__(self, path, structure=None):
        name = str(path).encode()
        call = self.library
        for function in (call.DbfOpen, call.DbfStrCreate):
            function.restype = ctypes.c_uint32
        self.handle = ctypes.c_uint32(call.DbfStrCreate(name, structure) if structure else call.DbfOpen(name, 0x42))
        if not self.handle.value:
            raise OSError(f"{path} cannot be opened: error {call.FError()}")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.library.DbfClose(self.handle) != 0:
            raise OSError("the table cannot be closed")

    def append(self, fields, row):
        assert self.library.DbfAppend(self.handle, 1) > 0
        for field, value in zip(fields, row):
            assert self.library.DbfReplace(self.handle, field.encode(), value.encode("latin-1")) == 1, field

    def rows(self):
        """The values of each record without blanks around them; deleted ones begin with "*"."""
        call, buffer = self.library, ctypes.create_string_buffer(70000)
        for record in range(1, call.DbfLastrec(self.handle) + 1):
            call.DbfGoto(self.handle, record)
            row = ["*"] if call.DbfIsDeleted(self.handle) else []
            for field in range(1, call.DbfFieldCount(self.handle) + 1):
                size = call.strdbfFieldGet(self.handle, field, buffer)
                row.append(buffer.raw[:size].decode("latin-1").strip(" "))
            yield row


class Interchange(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="vexlor-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def written(self):
        with Table(self.folder / "ours.dbf", STRUCTURE) as table:
            for row in ROWS[:2] + [DELETED] + ROWS[2:]:
                table.append(FIELDS, row)
                if row is DELETED:
                    table.library.DbfDelete(table.handle)
        return self.folder / "ours.dbf"

    def test_python_reads_ours(self):
        script = """
import dbfread, json
table = dbfread.DBF('ours.dbf', encoding='latin-1', char_decode_errors='strict')
print(json.dumps([[str(value) if value is not None else '' for value in row.values()] for row in table]))
print(json.dumps([row['NAME'] for row in table.deleted]))"""
        python = peer("python3")
        if subprocess.run([python, "-c", "import dbfread"], capture_output=True).returncode:
            raise unittest.SkipTest("python3-dbfread is not installed (scripts/setup test, as root)")
        self.written()
        rows, deleted = map(json.loads, output(python, "-c", script, cwd=self.folder).splitlines())
        self.assertEqual(rows, [[name, str(float(amount)), count, f"{day[:4]}-{day[4:6]}-{day[6:]}", str(paid == "T"), note]
                                for name, amount, count, day, paid, note in ROWS])
        self.assertEqual(deleted, ["deleted"])

    def test_shapelib_reads_ours(self):
        program = peer("dbfdump")
        self.written()
        text = output(program, "-m", "ours.dbf", cwd=self.folder).decode("latin-1")
        records = text.split("Record: ")[1:]
        live = [r for r in records if "(DELETED)" not in r]
        self.assertEqual((len(records), len(live)), (len(ROWS) + 1, len(ROWS)))
        for record, row in zip(live, ROWS):
            found = dict(line.split(": ", 1) for line in record.splitlines() if ": " in line)
            self.assertEqual([found["NAME"].strip(), found["AMOUNT"].strip(), found["COUNT"].strip()], row[:3])

    def test_pgdbf_reads_ours(self):
        program = peer("pgdbf")
        self.written()
        memo = next(self.folder.glob("ours.[dD][bB][tT]"))
        text = output(program, "-m", memo, "ours.dbf", cwd=self.folder).decode("latin-1")
        rows = [line.split("\t") for line in text.partition("FROM STDIN\n")[2].partition("\n\\.")[0].split("\n")]
        escaped = [[*row[:3], f"{row[3][:4]}-{row[3][4:6]}-{row[3][6:]}", row[4].lower(),
                    row[5].replace("\r", "\\r").replace("\n", "\\n")] for row in ROWS]
        self.assertEqual([row[:5] + [row[5].replace("\\N", "")] for row in rows], escaped)

    def test_perl_reads_ours(self):
        program = peer("dbf_dump")
        self.written()
        text = output(program, "--fs", "|", "--rs", "#", "ours.dbf", cwd=self.folder).decode("latin-1")
        rows = [record.split("|") for record in text.rstrip("#").split("#")]
        # It gives numbers as numbers, and nothing for an empty memo.
        expected = [[row[0], f"{float(row[1]):.2f}", row[2], row[3], str(int(row[4] == "T")), row[5]] for row in ROWS]
        self.assertEqual([[*row[:1], f"{float(row[1]):.2f}", *row[2:]] for row in rows], expected)

    def test_we_read_shapelib(self):
        create, add = peer("dbfcreate"), peer("dbfadd")
        output(create, "theirs.dbf", "-s", "NAME", "10", "-n", "AMOUNT", "8", "2", cwd=self.folder)
        for name, amount in (("Anna", "12.5"), ("Bert", "-3")):
            output(add, "theirs.dbf", name, amount, cwd=self.folder)
        with Table(self.folder / "theirs.dbf") as table:
            self.assertEqual(list(table.rows()), [["Anna", "12.50"], ["Bert", "-3.00"]])
            table.append(["NAME", "AMOUNT"], ["Carl", "7.00"])
        # The peer's own view of what we appended to its table.
        self.assertIn(b"Carl", output(peer("dbfdump"), "theirs.dbf", cwd=self.folder))

    def test_we_read_perl(self):
        peer("dbf_dump")
        script = """
use XBase;
my $t = XBase->create(name => "theirs.dbf", field_names => ["NAME", "AMOUNT", "BORN", "OK", "NOTE"],
    field_types => ["C", "N", "D", "L", "M"], field_lengths => [12, 10, 8, 1, 10], field_decimals => [0, 2, 0, 0, 0])
    or die XBase->errstr;
$t->set_record(0, "Hartwell", 1234.56, "19991231", 1, "Some words.\\r\\nA second line.");
$t->set_record(1, "Sons", -7, "20000229", 0, "x" x 700);
$t->set_record(2, "Gone", 1, "20000301", 1, "");
$t->delete_record(2);
$t->close;"""
        output(peer("perl"), "-e", script, cwd=self.folder)
        with Table(self.folder / "theirs.dbf") as table:
            self.assertEqual(list(table.rows()), [
                ["Hartwell", "1234.56", "19991231", "T", "Some words.\r\nA second line."],
                ["Sons", "-7.00", "20000229", "F", "x" * 700],
                ["*", "Gone", "1.00", "20000301", "T", ""]])
            table.append(["NAME", "NOTE"], ["Ours", "A memo among theirs."])
        rows = output(peer("dbf_dump"), "--fs", "|", "theirs.dbf", cwd=self.folder).decode().strip().split("\n")
        self.assertTrue(rows[-1].startswith("Ours|") and rows[-1].endswith("|A memo among theirs."), rows)


if __name__ == "__main__":
    unittest.main()
