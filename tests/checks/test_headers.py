"""The public header behind the headers of the systems, and exports/clashes.txt against what these declare and define."""
import hashlib
import json
import pathlib
import re
import shutil
import subprocess
import types
import unittest

from build import LIBRARY, NATIVE as BUILD, ROOT, all_names, clashes, dynamic_symbols, output

HEADER = ROOT / "include" / "vexlor32.h"
KEPT = BUILD / "stamps" / "headers"
PACKAGES = pathlib.Path("/var/lib/dpkg/status")
# What a program includes on each system; those that a system does not have are left out.
LINUX = """aio arpa/inet assert complex cpio ctype dirent dlfcn err errno fcntl fenv float fnmatch ftw getopt glob grp iconv inttypes
    langinfo libgen limits locale malloc math memory monetary netdb netinet/in nl_types poll pthread pwd regex sched search semaphore
    setjmp signal spawn stdarg stddef stdint stdio stdlib string strings sys/file sys/io sys/ioctl sys/ipc sys/mman sys/msg sys/param
    sys/resource sys/select sys/sem sys/shm sys/socket sys/stat sys/statfs sys/statvfs sys/sysinfo sys/time sys/times sys/types sys/uio
    sys/un sys/utsname sys/vfs sys/wait sys/xattr sysexits syslog tar termios time ucontext ulimit unistd utime utmpx values wchar wctype
    wordexp""".split()
WINDOWS = """math stdlib winsock2 ws2tcpip windows windowsx shlwapi shellapi shlobj commctrl commdlg mmsystem objbase ole2 richedit
    wininet winspool tchar conio io direct dos process share fcntl sys/locking sys/stat sys/timeb sys/types sys/utime string strings
    ctype stdio malloc memory mbctype mbstring float time signal errno wchar wctype locale setjmp search limits stdarg stddef stdint
    inttypes assert dirent unistd utime getopt""".split()
OTHERS = {"zlib": (["zlib"], "z"), "readline": (["stdio", "readline/readline", "readline/history"], "readline")}
EXTENDED = ["-D_GNU_SOURCE"]  # all that the headers have
LANGUAGES = [["-x", "c", "-std=c89"], ["-x", "c", "-std=gnu17"] + EXTENDED, ["-x", "c++", "-std=c++11"], ["-x", "c++", "-std=gnu++20"]]
STRICT = ["-Wall", "-Wextra", "-Wpedantic", "-Werror"]
# These say something else in C++.
C_ONLY = {"complex"}


class System:
    def __init__(self, compiler, headers):
        self.compiler = compiler
        self.headers = [h for h in headers if self.run(f"#include <{h}.h>\n", ["-x", "c", "-E"]).returncode == 0] if compiler else []

    def run(self, source, options):
        """What the compiler says; kept, because it says the same until our header or a package changes."""
        key = repr((self.compiler, options, source, HEADER.read_text() if "vexlor32.h" in source else "", PACKAGES.stat().st_mtime_ns if PACKAGES.exists() else 0))
        kept = KEPT / hashlib.sha256(key.encode()).hexdigest()
        if kept.exists():
            return types.SimpleNamespace(**json.loads(kept.read_text()))
        done = subprocess.run([self.compiler, *options, "-I", HEADER.parent, "-"], input=source, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        KEPT.mkdir(parents=True, exist_ok=True)
        kept.write_text(json.dumps({"returncode": done.returncode, "stdout": done.stdout, "stderr": done.stderr}))
        return done

    def includes(self, options, headers=None):
        skipped = C_ONLY if "c++" in options else set()
        return "".join(f"#include <{h}.h>\n" for h in headers or self.headers if h not in skipped)

    def macros(self, options, source):
        done = self.run(source, [*options, "-E", "-dM"])
        if done.returncode:
            raise AssertionError(done.stderr)
        return set(re.findall(r"^#define (\w+)", done.stdout, re.MULTILINE))

    def declared(self, options, headers=None):
        """Exported names that the headers declare as anything: declaring them as something else is an error."""
        source = self.includes(options, headers)
        if (alone := self.run(source, [*options, "-fsyntax-only"])).returncode:
            raise AssertionError(alone.stderr)
        source += "struct vx_probe;\n"
        source += "".join(f'#undef {n}\n#line 1 "probe {n}"\nextern struct vx_probe {n};\n' for n in sorted(all_names()))
        errors = self.run(source, [*options, "-fsyntax-only", "-fmax-errors=0"]).stderr
        return set(re.findall(r"^probe (\w+):1:\d+: error", errors, re.MULTILINE))


def named(*compilers):
    return next((c for c in compilers if shutil.which(c)), "")


NATIVE = System(named("g++"), LINUX)
CROSS = System(named("i686-w64-mingw32-g++-posix"), WINDOWS)
C = ["-x", "c", "-std=gnu17"] + EXTENDED
CPP = ["-x", "c++", "-std=gnu++20"]


class Header(unittest.TestCase):
    def compiles(self, system, extra=()):
        for options in LANGUAGES:
            behind = system.includes(options, system.headers + list(extra))
            for includes in ("", behind):
                for names in ("", "#define VEXLOR32_ALL_NAMES\n"):
                    with self.subTest(options=options, behind=bool(includes), all_names=bool(names)):
                        source = f'{includes}{names}#include "vexlor32.h"\n'
                        done = system.run(source, [*options, *STRICT, "-fsyntax-only"])
                        self.assertEqual((done.returncode, done.stderr), (0, ""))
                        if includes:
                            declared = set(re.findall(r"VEXLOR32_CALL (\w+)\(", HEADER.read_text() if names else self.first_names()))
                            self.assertEqual(system.macros(options, source) & declared, set(), "these calls go elsewhere")

    @staticmethod
    def first_names():
        return re.sub(r"#ifdef VEXLOR32_ALL_NAMES\n.*?#endif", "", HEADER.read_text(), flags=re.DOTALL)

    def test_compiles_behind_all_headers_of_linux(self):
        self.compiles(NATIVE, [h for headers, _ in OTHERS.values() for h in headers
                               if NATIVE.run(NATIVE.includes(C, headers), ["-x", "c", "-E"]).returncode == 0])

    @unittest.skipUnless(CROSS.compiler, "the Windows cross compiler is not installed")
    def test_compiles_behind_all_headers_of_windows(self):
        self.compiles(CROSS)


class Clashes(unittest.TestCase):
    """Each section of the list holds what its headers and library have, and nothing else."""

    def declared(self, system, headers=None):
        return system.declared(C, headers) | system.declared(CPP, headers)

    def macros(self, system, left_out):
        found = set().union(*(system.macros(o, system.includes(o)) for o in (C, CPP)))
        return found & all_names() - left_out

    def test_linux(self):
        self.assertGreater(len(NATIVE.headers), 60)
        c_library = re.search(r"libc\.so\.6 => (\S+)", output("ldd", LIBRARY)).group(1)
        self.assertEqual(clashes("Linux"), self.declared(NATIVE) | all_names() & dynamic_symbols(c_library))
        self.assertEqual(self.macros(NATIVE, clashes("Linux")), set())

    @unittest.skipUnless(CROSS.compiler, "the Windows cross compiler is not installed")
    def test_windows(self):
        self.assertGreater(len(CROSS.headers), 50)
        archive = output(CROSS.compiler, "-print-file-name=libmsvcrt.a").strip()
        run = subprocess.run(["i686-w64-mingw32-nm", archive], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        c_library = set(re.findall(r" T _(\S+)$", run.stdout, re.MULTILINE))
        self.assertEqual(clashes("Windows"), self.declared(CROSS) | all_names() & c_library)
        self.assertEqual(clashes("Windows macros"), self.macros(CROSS, clashes("Windows") | clashes("Linux")))

    def test_other_libraries(self):
        for name, (headers, library) in OTHERS.items():
            with self.subTest(library=name):
                if NATIVE.run(NATIVE.includes(C, headers), ["-x", "c", "-E"]).returncode:
                    self.skipTest(f"the headers of {name} are not installed")
                path = pathlib.Path(output("g++", f"-print-file-name=lib{library}.so").strip())
                self.assertEqual(clashes(name), (self.declared(NATIVE, headers) | all_names() & dynamic_symbols(path)) - clashes("Linux"))
