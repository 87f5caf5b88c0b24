"""The library as it is installed: programs are compiled with it in each of the usual ways, and run."""
import os
import pathlib
import shutil
import subprocess
import unittest

from build import DLLS, NATIVE, ROOT, readme_programs

# In the project folder, because programs under Wine see nothing else.
SCRATCH = NATIVE / "installed"
PREFIX, WORK = SCRATCH / "prefix", SCRATCH / "work"
WINDOWS_PREFIX = SCRATCH / "windows"
PROJECT = """cmake_minimum_required(VERSION 3.25)
project(caller C)
find_package(vexlor32 5.0 REQUIRED)
add_executable(caller program.c)
target_link_libraries(caller PRIVATE vexlor32::vexlor32)
"""


def run(*command, **environment):
    done = subprocess.run([str(c) for c in command], cwd=WORK, env=os.environ | environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True, timeout=300)
    if done.returncode:
        raise AssertionError(f"{command} ended with {done.returncode}:\n{done.stdout}")
    return done.stdout


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        shutil.rmtree(SCRATCH, ignore_errors=True)
        WORK.mkdir(parents=True)
        run("cmake", "--install", NATIVE, "--prefix", PREFIX)
        cls.libraries = next(PREFIX.rglob("libvexlor32.so")).parent
        programs, cls.prints = readme_programs()
        (WORK / "program.c").write_text(programs["c"])
        (WORK / "CMakeLists.txt").write_text(PROJECT)

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(SCRATCH)

    def found_by_the_system(self):
        return {"CPATH": str(PREFIX / "include"), "LIBRARY_PATH": str(self.libraries), "LD_LIBRARY_PATH": str(self.libraries)}

    def test_compiler_alone(self):
        run("cc", "program.c", "-lvexlor32", "-o", "plain", **self.found_by_the_system())
        self.assertEqual(run(WORK / "plain", **self.found_by_the_system()), self.prints)
        run("cc", ROOT / "tests" / "callers" / "linked.c", "-lvexlor32", "-o", "linked", **self.found_by_the_system())
        run(WORK / "linked", **self.found_by_the_system())
        run("c++", "-Wall", "-Wextra", "-Wpedantic", "-Werror", ROOT / "packaging" / "smoke" / "smoke.cpp", "-lvexlor32", "-o", "cpp",
            **self.found_by_the_system())

    def test_pkg_config(self):
        if not shutil.which("pkg-config"):
            self.skipTest("pkg-config is not installed")
        where = {"PKG_CONFIG_PATH": str(self.libraries / "pkgconfig")}
        flags = run("pkg-config", "--cflags", "--libs", "vexlor32", **where).split()
        run("cc", "program.c", *flags, "-o", "configured")
        self.assertEqual(run(WORK / "configured", LD_LIBRARY_PATH=str(self.libraries)), self.prints)
        self.assertEqual(run("pkg-config", "--modversion", "vexlor32", **where), "5.0\n")

    def test_find_package(self):
        run("cmake", "-S", ".", "-B", "native", f"-DCMAKE_PREFIX_PATH={PREFIX}")
        run("cmake", "--build", "native")
        self.assertEqual(run(WORK / "native" / "caller"), self.prints)

    def test_find_package_for_windows(self):
        built = {bits: dll for bits, dll in DLLS.items() if dll.exists()}
        if not built:
            self.skipTest("no Windows library was built in this run")
        for dll in built.values():  # into one folder, as in the archive for Windows
            run("cmake", "--install", dll.parent, "--prefix", WINDOWS_PREFIX)
        for bits, dll in built.items():
            toolchain = ROOT / "cmake" / {32: "mingw-i686.cmake", 64: "mingw-x86_64.cmake"}[bits]
            folder = WORK / f"windows{bits}"
            run("cmake", "-S", ".", "-B", folder, f"-DCMAKE_TOOLCHAIN_FILE={toolchain}", f"-Dvexlor32_DIR={WINDOWS_PREFIX}/lib/cmake/vexlor32")
            run("cmake", "--build", folder)
            if subprocess.run([ROOT / "scripts" / "wine", "--check", str(bits)], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode:
                continue  # compiled and linked; the legs of Windows say why nothing runs
            shutil.copy(WINDOWS_PREFIX / "bin" / dll.name, folder)
            self.assertEqual(run(ROOT / "scripts" / "wine", folder / "caller.exe").replace("\r", ""), self.prints)

    def test_host_with_its_manual_and_completions(self):
        self.assertEqual(run(PREFIX / "bin" / "vexlor", "--raw", "AllTrim", " x "), "x\n")
        manual = next(PREFIX.rglob("vexlor.1")).read_text()
        self.assertRegex(manual, r"(?s)^\.TH VEXLOR 1.*\.SH EXAMPLES\n")
        completion = PREFIX / "share" / "bash-completion" / "completions" / "vexlor"
        script = f'source {completion}; COMP_WORDS=(vexlor "$@"); COMP_CWORD=$#; _vexlor; echo "${{COMPREPLY[@]}}"'
        for words, wanted in [(["AllT"], "AllTrim AllTrimLen"), (["--expl"], "--explain"), (["--list", "tri"], "trim"), (["--raw", "--try", "StrCent"], "StrCenter"),
                              (["--set", "a=b", "alltriml"], "alltrimlen"), (["AllTrim", "progr"], "program.c")]:
            self.assertEqual(run("bash", "-c", script, "bash", *words), wanted + "\n", words)
        for shell, file in [("zsh", "_vexlor"), ("fish", "vexlor.fish")]:
            if shutil.which(shell):
                run(shell, "-n", next(PREFIX.rglob(file)))
