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
# A memo of several blocks, one that fills its blocks exactly, an empty one, characters of the upper half.
ROWS = [
    ["Hartwell & Sons", "1234.56", "7", "19991231", "T", "Paid on account.\r\nSecond line."],
    ["O'Brien; \"Ltd\"", "-0.05", "-12", "20000229", "F", "x" * 1500],
    ["M\x81ller", "999999999.99", "999999", "19000101", "T", "y" * 511],
    ["nothing", "0.00", "0", "20261123", "F", ""],
]
DELETED = ["deleted", "1.00", "1", "20200202", "T", "gone"]


class Table:
    """A table opened or made by the library."""
    library = ctypes.CDLL(str(LIBRARY))

    def __init__(self, path, structure=None):
        call = self.library
        call.DbfOpen.restype = call.DbfStrCreate.restype = ctypes.c_uint32
        name = str(path).encode()
        self.handle = ctypes.c_uint32(call.DbfStrCreate(name, structure) if structure else call.DbfOpen(name, 0x42))
        if not self.handle.value:
            raise OSError(f"{path} cannot be opened: error {call.FError()}")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.library.DbfClose(self.handle) != 0:
            raise OSError("the table cannot be closed")

    def append(self, values):
        assert self.library.DbfAppend(self.handle, 1) > 0
        for field, value in values.items():
            assert self.library.DbfFieldPut(self.handle, field, value.encode("latin-1")) == 1, field

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
        with Table(self.folder / "ours.dbf", STRUCTURE) as table:
            for row in ROWS[:2] + [DELETED] + ROWS[2:]:
                table.append(dict(enumerate(row, 1)))
                if row is DELETED:
                    table.library.DbfDelete(table.handle)

    def peer(self, program, *arguments):
        """What the program prints; where it is missing the test is skipped, with the reason."""
        path = shutil.which(program, path="/usr/bin:/bin")
        if not path:
            self.skipTest(f"{program} is not installed (scripts/setup test, as root)")
        done = subprocess.run([path, *arguments], cwd=self.folder, check=True, stdout=subprocess.PIPE, timeout=60)
        return done.stdout.decode("latin-1")

    def test_python_reads_ours(self):
        if self.peer("python3", "-c", "import importlib.util as u; print(u.find_spec('dbfread'))").startswith("None"):
            self.skipTest("python3-dbfread is not installed (scripts/setup test, as root)")
        text = self.peer("python3", "-c", """
import dbfread, json
table = dbfread.DBF('ours.dbf', encoding='latin-1', char_decode_errors='strict')
print(json.dumps([[str(value) if value is not None else '' for value in row.values()] for row in table]))
print(json.dumps([row['NAME'] for row in table.deleted]))""")
        expected = [[name, str(float(amount)), count, f"{day[:4]}-{day[4:6]}-{day[6:]}", str(paid == "T"), note]
                    for name, amount, count, day, paid, note in ROWS]
        self.assertEqual([json.loads(line) for line in text.splitlines()], [expected, ["deleted"]])

    def test_perl_reads_ours(self):
        text = self.peer("dbf_dump", "--fs", "|", "--rs", "#", "ours.dbf")
        rows = [record.split("|") for record in text.rstrip("#").split("#")]
        # It gives numbers as numbers, and nothing for an empty memo.
        self.assertEqual([[row[0], f"{float(row[1]):.2f}", *row[2:]] for row in rows],
                         [[*row[:4], str(int(row[4] == "T")), row[5]] for row in ROWS])

    def test_we_read_shapelib(self):
        self.peer("dbfcreate", "theirs.dbf", "-s", "NAME", "10", "-n", "AMOUNT", "8", "2")
        for name, amount in (("Anna", "12.5"), ("Bert", "-3")):
            self.peer("dbfadd", "theirs.dbf", name, amount)
        with Table(self.folder / "theirs.dbf") as table:
            self.assertEqual(list(table.rows()), [["Anna", "12.50"], ["Bert", "-3.00"]])
            table.append({1: "Carl", 2: "7.00"})
        self.assertIn("Carl", self.peer("dbfdump", "theirs.dbf"))

    def test_we_read_perl(self):
        self.peer("dbf_dump", "ours.dbf")
        self.peer("perl", "-e", r"""
use XBase;
my $t = XBase->create(name => "theirs.dbf", field_names => ["NAME", "AMOUNT", "BORN", "OK", "NOTE"],
    field_types => ["C", "N", "D", "L", "M"], field_lengths => [12, 10, 8, 1, 10], field_decimals => [0, 2, 0, 0, 0])
    or die XBase->errstr;
$t->set_record(0, "Hartwell", 1234.56, "19991231", 1, "Some words.\r\nA second line.");
$t->set_record(1, "Sons", -7, "20000229", 0, "x" x 700);
$t->set_record(2, "Gone", 1, "20000301", 1, "");
$t->delete_record(2);
$t->close;""")
        with Table(self.folder / "theirs.dbf") as table:
            self.assertEqual(list(table.rows()), [
                ["Hartwell", "1234.56", "19991231", "T", "Some words.\r\nA second line."],
                ["Sons", "-7.00", "20000229", "F", "x" * 700],
                ["*", "Gone", "1.00", "20000301", "T", ""]])
            table.append({1: "Ours", 5: "A memo among theirs."})
        last = self.peer("dbf_dump", "--fs", "|", "theirs.dbf").strip().split("\n")[-1]
        self.assertTrue(last.startswith("Ours|") and last.endswith("|A memo among theirs."), last)
