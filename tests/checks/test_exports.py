"""The built libraries against the export table: names, nothing but names, and the stack that each entry clears."""
import collections
import pathlib
import re
import subprocess
import unittest

from build import DLLS, LIBRARY, NATIVE, ROOT, all_names, clashes, dynamic_symbols, entries, needs_dll, output


class KeptList(unittest.TestCase):
    """exports/names.txt is kept by hand: a name that a table loses, or moves to another entry, shows here."""

    def kept(self):
        families = collections.defaultdict(list)
        for line in (ROOT / "exports" / "names.txt").read_text().splitlines():
            if line.startswith("["):
                family = line.strip("[]")
            elif line and not line.startswith("#"):
                families[family].append(line.split())
        return families

    def test_tables_have_exactly_the_kept_names(self):
        kept = self.kept()
        built = collections.defaultdict(set)
        for family, _, names in entries():
            built[family].add(frozenset(names))
        for family in built.keys() | kept.keys():
            with self.subTest(family=family):
                self.assertEqual(built[family], {frozenset(names) for names in kept[family]})

    def test_list_is_sound(self):
        names = [name for groups in self.kept().values() for names in groups for name in names]
        self.assertEqual([n for n, count in collections.Counter(names).items() if count > 1], [])
        self.assertGreaterEqual(len(names), 1629)


class Objects(unittest.TestCase):
    def test_need_no_destructor_at_the_end(self):
        """Hosts call while they end. What a destructor has ended by then would be met by such a call."""
        registers = re.compile(r"^_*(cxa_atexit|cxa_thread_atexit|atexit|onexit|dllonexit|at_quick_exit|tlregdtor)$")
        for build in [NATIVE, *(dll.parent for dll in DLLS.values() if dll.exists())]:
            objects = [*(build / "CMakeFiles" / "vexlor32_objects.dir").rglob("*.o*")]
            self.assertTrue(objects)
            for file in objects:
                symbols = {line.split()[0] for line in output("nm", "--undefined-only", "--format=posix", file).splitlines()}
                self.assertEqual([s for s in symbols if registers.match(s)], [], file)


def expect_one_address_each(test, exports):
    owner = {}
    for _, _, names in entries():
        addresses = {exports[name] for name in names}
        test.assertEqual(len(addresses), 1, names)
        test.assertNotIn(min(addresses), owner, names)
        owner[min(addresses)] = names


class NativeLibrary(unittest.TestCase):
    def test_exports_the_table_and_nothing_else(self):
        self.assertEqual(dynamic_symbols(LIBRARY), all_names())

    def test_all_names_of_an_entry_are_one_address(self):
        lines = output("nm", "--dynamic", "--defined-only", "--format=posix", LIBRARY).splitlines()
        expect_one_address_each(self, {line.split("@")[0]: line.split()[2] for line in lines})

    def test_every_name_has_the_version(self):
        lines = output("nm", "--dynamic", "--defined-only", "--with-symbol-versions", LIBRARY).splitlines()
        bare = [line for line in lines if " T " in line and not line.endswith("@@VEXLOR32_1")]
        self.assertEqual(bare, [])

    def test_own_calls_do_not_meet_own_names(self):
        """An export captures the library's own calls to a C function of its name, so there must be none."""
        objects = [o for o in (NATIVE / "CMakeFiles" / "vexlor32_objects.dir").rglob("*.o")]
        self.assertTrue(objects)
        undefined = {line.split()[0] for line in output("nm", "--undefined-only", "--format=posix", *objects).splitlines() if line and ":" not in line}
        self.assertEqual(undefined & all_names(), set())

    def test_link_stub_leaves_the_c_library_alone(self):
        stub = NATIVE / "link" / "vexlor32-link.so"
        self.assertEqual(dynamic_symbols(stub), all_names() - clashes("Linux") - clashes("zlib") - clashes("readline"))
        names = [re.search(r"SONAME\s+(\S+)", output("objdump", "-p", library)).group(1) for library in (stub, LIBRARY)]
        self.assertEqual(names[0], names[1])

    def test_needs_only_the_standard_libraries(self):
        needed = set(re.findall(r"NEEDED\s+(\S+)", output("objdump", "-p", LIBRARY)))
        self.assertLessEqual(needed, {"libc.so.6", "libm.so.6", "libstdc++.so.6", "libgcc_s.so.1", "ld-linux-x86-64.so.2"})


class WindowsLibrary:
    """What holds for both; the class of each names its bits and its tools."""

    @classmethod
    def setUpClass(cls):
        cls.dll = DLLS[cls.bits]
        text = output(cls.tools + "objdump", "-p", cls.dll)
        cls.headers = text
        cls.image_base = int(re.search(r"ImageBase\s+(\w+)", text).group(1), 16)
        addresses = {int(i): int(rva, 16) for i, rva in re.findall(r"\[ *(\d+)\] \+base\[ *\d+\] +(\w+) Export RVA", text)}
        names = text.partition("[Ordinal/Name Pointer] Table")[2]
        cls.exports = {name: cls.image_base + addresses[int(i)]
                       for i, name in re.findall(r"^\s*\[ *(\d+)\] (?:\+base\[ *\d+\] +[0-9a-f]{4} )?(\S+)\s*$", names, re.MULTILINE)}

    def test_exports_the_table_and_nothing_else(self):
        self.assertEqual(set(self.exports), all_names())

    def test_all_names_of_an_entry_are_one_address(self):
        expect_one_address_each(self, self.exports)

    def test_imports_what_the_oldest_systems_have(self):
        """imports.txt is kept by hand. What came later is asked for at run time, in the seam."""
        allowed, imported, bits = set(), set(), ""
        for line in (pathlib.Path(__file__).parent / "imports.txt").read_text().splitlines():
            if line.startswith("["):
                library, _, bits = line.strip("[]").partition(" ")
            elif not line.startswith("#") and bits in ("", str(self.bits)):
                allowed.update((library, name) for name in line.split())
        for line in self.headers.partition("The Import Tables")[2].partition("The Export Tables")[0].splitlines():
            if "DLL Name:" in line:
                library = line.split()[-1]
            elif call := re.match(r"\t[0-9a-f]+\t *\d+ +(\S+)", line):
                imported.add((library, call.group(1)))
        self.assertIn(("KERNEL32.dll", "CloseHandle"), imported)
        self.assertEqual(imported - allowed, set())

    def test_is_such_a_library_with_a_version(self):
        self.assertIn({32: "pei-i386", 64: "pei-x86-64"}[self.bits], output(self.tools + "objdump", "-f", self.dll))
        image = self.dll.read_bytes()
        for text in ("OriginalFilename", f"Vexlor{self.bits}.DLL", "5.0 Beta 199.02"):
            self.assertIn(text.encode("utf-16-le"), image)

    def test_import_library_has_what_programs_call(self):
        lines = output(self.tools + "nm", "--defined-only", self.dll.parent / f"libvexlor{self.bits}.a").splitlines()
        symbols = {line.split()[2] for line in lines if " T " in line}
        self.assertEqual(symbols, self.linked_names())


@needs_dll(32)
class WindowsLibrary32(WindowsLibrary, unittest.TestCase):
    bits, tools = 32, "i686-w64-mingw32-"

    def linked_names(self):
        return {f"_{name}@{size}" for _, size, names in entries() for name in names}

    def test_asks_for_no_newer_system(self):
        self.assertLessEqual(int(re.search(r"MajorSubsystemVersion\s+(\d+)", self.headers).group(1)), 4)

    def test_each_entry_clears_its_arguments(self):
        """stdcall: `ret n` with n four times the number of arguments, or the program's stack drifts."""
        functions, current = {}, []
        for line in output(self.tools + "objdump", "-d", "--no-show-raw-insn", self.dll).splitlines():
            if heading := re.match(r"([0-9a-f]+) <.*>:$", line):
                current = functions[int(heading.group(1), 16)] = []
            elif instruction := re.match(r"\s*[0-9a-f]+:\t(ret|jmp)\s*(\S*)", line):
                current.append(instruction.groups())

        def cleared(address, depth=0):
            rets = {int(operand.strip("$") or "0", 16) for name, operand in functions[address] if name == "ret"}
            if rets or depth > 3:
                return rets
            jumps = [int(t, 16) for name, t in functions[address] if name == "jmp" and re.fullmatch(r"(0x)?[0-9a-f]+", t)]
            return {n for target in jumps if target in functions for n in cleared(target, depth + 1)}

        for _, size, names in entries():
            self.assertEqual(cleared(self.exports[names[0]]), {size}, names[0])


@needs_dll(64)
class WindowsLibrary64(WindowsLibrary, unittest.TestCase):
    bits, tools = 64, "x86_64-w64-mingw32-"

    def linked_names(self):
        """Nothing is decorated here, so the C library keeps its names."""
        return all_names() - clashes("Windows")
