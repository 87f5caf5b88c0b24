"""Programs in other languages, built and run as people do: those of the README as it says, and the cheque runs as their first lines say.
What the latter print and leave behind is, byte for byte, what the C++ one does."""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import unittest

from build import NATIVE, ROOT, readme_programs

SCRATCH = NATIVE / "languages"
PREFIX = SCRATCH / "prefix"
DEMO = NATIVE / "vexlor_demo"
CACHE = pathlib.Path(os.environ.get("VEXLOR32_CACHE") or pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache") / "vexlor32")
JNA = pathlib.Path("/usr/share/java/jna.jar")
# A language of the README's table: its code block, the programs that it needs, and the cheque run.
LANGUAGES = {
    "C": ("c", ["cc"], "c/cheques.c"),
    "C++": ("cpp", ["c++"], None),
    "Python": ("python", ["python3"], "python/cheques.py"),
    "C#": ("csharp", ["mcs", "mono"], "csharp/Cheques.cs"),
    "Pascal": ("pascal", ["fpc"], "pascal/cheques.pas"),
    "Java": ("java", ["javac", "java"], "java/Cheques.java"),
    "Node": ("js", ["node"], "node/cheques.js"),
    "Rust": ("rust", ["rustc"], None),
}
ODD_PAYEES = '''name,town,state,zip,date,amount,memo
"Quist, ""The Desk""",Cedar Rapids,Iowa,52401,3/4/2026,"1,000",\r
"RUIZ PLUMBING SUPPLY",Santa Fe,new mexico,87501,3/2/2026,86.4,"Boiler room,
second floor"

Ruis Plumbing Supply,"  Santa Fe  ",NM,87501,3/2/2026,86.40,again
ruiz plumbing suply,Santa Fe,NM,87501,3/2/2026,87,another amount
Dear Printer,Dayton,OH,45402,3/2/2026,999999999.99,too much
Old Printer,Dayton,Atlantis,45402,3/2/2026,12,nowhere
A name that is much longer than the line of the cheque on which it is written,Dayton,OH,45402,12/31/1999,0.07,x
Last Printer,,OH,45402,1/1/2026,7,"ends without a line end"'''


class Languages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        shutil.rmtree(SCRATCH, ignore_errors=True)
        SCRATCH.mkdir()
        for component in ("runtime", "development"):
            subprocess.run(["cmake", "--install", NATIVE, "--prefix", PREFIX, "--component", component], check=True, stdout=subprocess.DEVNULL)
        libraries = str(next(PREFIX.rglob("libvexlor32.so")).parent)
        include = str(PREFIX / "include")
        cls.environment = {name: value for name, value in os.environ.items() if name != "VEXLOR32_LIBRARY"} | {
            "C_INCLUDE_PATH": include, "CPLUS_INCLUDE_PATH": include, "LIBRARY_PATH": libraries, "LD_LIBRARY_PATH": libraries,
            "NODE_PATH": ":".join([str(CACHE / "node" / "node_modules"), *os.environ.get("NODE_PATH", "").split()])}
        (SCRATCH / "odd.csv").write_text(ODD_PAYEES, newline="")
        cls.programs, cls.prints = readme_programs()
        cls.rows = {row[0]: row[1:] for row in re.findall(r"^\| (\S+) \| `(\S+)` \| .* \| `(.*)` \|$", (ROOT / "README.md").read_text(), re.MULTILINE)}

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(SCRATCH)

    def run_shell(self, command, folder):
        """In a folder that looks like the project's, after what the README says first."""
        return subprocess.run(["bash", "-e", "-c", self.programs["sh"] + command], cwd=folder, env=self.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, text=True, timeout=300)

    def check_run(self, command, folder):
        done = self.run_shell(command, folder)
        self.assertEqual(done.returncode, 0, f"{command}\n{done.stdout}{done.stderr}")
        return done.stdout

    def check_language(self, language):
        tag, needed, cheques = LANGUAGES[language]
        missing = [name for name in needed if not shutil.which(name)] + ([str(JNA)] if language == "Java" and not JNA.exists() else [])
        if language == "Node" and not missing and self.run_shell("node -e \"require('koffi')\"", SCRATCH).returncode:
            missing = ["koffi, the package"]
        if missing:
            self.skipTest(f"there is no {' and no '.join(missing)}")
        folder = SCRATCH / tag
        (folder / "build").mkdir(parents=True)
        (folder / "build" / "native").symlink_to(NATIVE)
        if language == "Node":  # what npm does, without the network
            (folder / "node_modules").mkdir()
            (folder / "node_modules" / "vexlor32").symlink_to(NATIVE / "generated" / "bindings" / "node")
        name, command = self.rows[language]
        (folder / name).write_text(self.programs[tag])
        self.assertEqual(self.check_run(command, folder).splitlines()[-1] + "\n", self.prints, command)
        if cheques:
            self.check_cheques(ROOT / "examples" / cheques, folder)

    def check_cheques(self, source, folder):
        if not DEMO.exists():
            self.skipTest("the cheque run in C++ was not built")
        shutil.copy(source, folder)
        (folder / "cpp").mkdir()
        head, arguments, _ = source.read_text().partition(" PAYEES.csv CHEQUES.dbf")
        *building, running = re.findall(r"^(?://| \*)? {4,}(\S.*)$", head + arguments, re.MULTILINE)
        for command in building:
            self.check_run(command, folder)
        for payees, table in [(ROOT / "examples" / "payees.csv", "cheques.dbf"), (SCRATCH / "odd.csv", "odd.dbf"),
                              (ROOT / "examples" / "payees.csv", "nowhere/cheques.dbf"), (SCRATCH / "nowhere.csv", "empty.dbf"), ("", "")]:
            with self.subTest(payees=str(payees), table=table):
                ours = self.run_shell(running.replace("PAYEES.csv CHEQUES.dbf", f"{payees} {table}"), folder)
                wanted = self.run_shell(f"{DEMO} {NATIVE}/libvexlor32.so {payees} {table and 'cpp/' + table}", folder)
                self.assertEqual((ours.returncode, ours.stdout), (wanted.returncode, wanted.stdout), ours.stderr)
                self.assertEqual(bool(ours.stderr), ours.returncode != 0, ours.stderr)
                if ours.returncode == 0:
                    self.assertEqual(without_date(folder / table), without_date(folder / "cpp" / table))
                    memos = pathlib.Path(table).with_suffix(".dbt")
                    self.assertEqual((folder / memos).read_bytes(), (folder / "cpp" / memos).read_bytes())

    def test_visual_basic(self):
        """Interpreted, since there is no compiler of it here."""
        expression = re.search(r"Debug\.Print (.*)", self.programs["vb"]).group(1)
        script = "import sys; from caller import Statement; print(Statement(sys.argv[1], {}, None).expression())"
        environment = os.environ | {"PYTHONPATH": str(ROOT / "tests" / "bindings" / "vba"), "VEXLOR_BUILD": str(NATIVE),
                                    "VEXLOR32_LIBRARY": str(NATIVE / "libvexlor32.so"), "LD_LIBRARY_PATH": str(NATIVE)}
        done = subprocess.run([sys.executable, "-c", script, expression], env=environment, check=True, stdout=subprocess.PIPE, text=True)
        self.assertEqual(done.stdout, self.prints)

    def test_each_row_of_the_readme_is_tried(self):
        self.assertEqual(set(self.rows), set(LANGUAGES))


def without_date(table):
    """A table's bytes without the day of its last change."""
    content = table.read_bytes()
    return content[:1] + content[4:]


for language in LANGUAGES:
    setattr(Languages, "test_" + LANGUAGES[language][0], lambda self, language=language: self.check_language(language))


if __name__ == "__main__":
    unittest.main()
