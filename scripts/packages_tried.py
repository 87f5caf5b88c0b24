"""Tries packages: each is installed or unpacked in an empty folder, where its program of packaging/smoke calls ten functions and reads a table.

What the programs print is in packaging/smoke/expected.txt. A try is a generator of what can be said of it; a fault is a RuntimeError.
"""
import contextlib
import os
import pathlib
import re
import shutil
import struct
import sys
import tarfile
import tempfile
import zipfile

from packages_basics import LeftOut, needs, run

ROOT = pathlib.Path(__file__).resolve().parents[1]
PROGRAMS = ROOT / "packaging" / "smoke"
CMAKE_PROJECT = """cmake_minimum_required(VERSION 3.25)
project(smoke C)
find_package(vexlor32 REQUIRED)
add_executable(smoke smoke.c)
target_link_libraries(smoke PRIVATE vexlor32::vexlor32)
"""
# The newest versions that the wheel's tag promises to do with.
PROMISED = {"GLIBC": (2, 34), "GLIBCXX": (3, 4, 29), "CXXABI": (1, 3, 13)}


def table():
    """A table in dBASE III format, made here and not by the library."""
    fields, records = [("PAYEE", b"C", 20, 0), ("AMOUNT", b"N", 10, 2)], [("Hartwell & Sons", "120.50"), ("Miller", "1234.56")]
    header = struct.pack("<BBBBIHH20x", 3, 126, 11, 23, len(records), 33 + 32 * len(fields), 1 + sum(f[2] for f in fields))
    for name, kind, length, decimals in fields:
        header += struct.pack("<11sc4xBB14x", name.encode(), kind, length, decimals)
    return header + b"\r" + b"".join(f" {payee:20}{amount:>10}".encode() for payee, amount in records) + b"\x1a"


@contextlib.contextmanager
def clean_folder():
    """With the table and the programs, and below the project's, because programs under Wine see nothing else."""
    parent = ROOT / "build" / "packages"
    parent.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory(dir=parent) as name:
        folder = pathlib.Path(name)
        (folder / "cheques.dbf").write_bytes(table())
        for program in PROGRAMS.iterdir():
            shutil.copy(program, folder)
        yield folder


def right(*command, cwd, **environment):
    printed = run(*command, cwd=cwd, **environment).replace("\r\n", "\n")
    if printed != (PROGRAMS / "expected.txt").read_text():
        raise RuntimeError(f"{' '.join(map(str, command))} printed\n{printed}")


def unpacked(archive, folder):
    """The one folder that the archive has at its top."""
    with (zipfile.ZipFile if archive.suffix == ".zip" else tarfile.open)(archive) as opened:
        opened.extractall(folder)
        names = opened.namelist() if archive.suffix == ".zip" else opened.getnames()
    tops = {name.partition("/")[0] for name in names}
    if len(tops) != 1:
        raise RuntimeError(f"{archive.name} unpacks into {tops}")
    return folder / tops.pop()


def debian(release, files):
    needs("lintian")
    run("lintian", "--no-cfg", "--allow-root", "--fail-on", "error,warning", "--tag-display-limit", "0", *files, cwd=ROOT)
    yield "lintian finds no fault"
    run("apt-get", "install", "--simulate", "--no-install-recommends", *files, cwd=ROOT)
    yield "this Debian has what they depend on"
    with clean_folder() as folder:
        root, dpkg = folder / "root", []
        if os.geteuid() == 0:
            (root / "var" / "lib" / "dpkg" / "updates").mkdir(parents=True)
            (root / "var" / "lib" / "dpkg" / "status").touch()
            dpkg = ["dpkg", f"--root={root}", "--force-depends", "--log=/dev/null"]
            run(*dpkg, "--install", *files, cwd=folder)
        else:
            for file in files:
                run("dpkg-deb", "--extract", file, root, cwd=folder)
        libraries = root / "usr" / "lib" / "x86_64-linux-gnu"
        if said := run("/sbin/ldconfig", "-nNX", libraries, cwd=folder):
            raise RuntimeError(f"ldconfig says {said}")
        flags = run("pkg-config", "--cflags", "--libs", "vexlor32", cwd=folder, PKG_CONFIG_LIBDIR=str(libraries / "pkgconfig")).split()
        for compiler, source in (("cc", "smoke.c"), ("c++", "smoke.cpp")):
            run(compiler, source, *flags, "-o", "smoke", cwd=folder)
            right("./smoke", cwd=folder, LD_LIBRARY_PATH=str(libraries))
        (folder / "CMakeLists.txt").write_text(CMAKE_PROJECT)
        run("cmake", "-B", "build", f"-DCMAKE_PREFIX_PATH={root}/usr", cwd=folder)
        run("cmake", "--build", "build", cwd=folder)
        right("build/smoke", cwd=folder)
        vexlor, where = root / "usr" / "bin" / "vexlor", {"LD_LIBRARY_PATH": str(libraries)}
        if run(vexlor, "--raw", "StrCenter", "PAID", "20", "*", cwd=folder, **where) != "********PAID********\n":
            raise RuntimeError("vexlor does not call StrCenter")
        if not re.search(r"Miller +\S* *1234\.56", run(vexlor, "--table", "cheques.dbf", cwd=folder, **where)):
            raise RuntimeError("vexlor does not show the table")
        yield f"installed in an empty root by {'dpkg' if dpkg else 'dpkg-deb --extract'}; programs in C and C++, by pkg-config and CMake, and vexlor, are right"
        if dpkg:
            run(*dpkg, "--purge", *(file.name.partition("_")[0] for file in files), cwd=folder)
            left = [str(p.relative_to(root)) for p in root.rglob("*") if p.is_file() and "dpkg" not in p.parts]
            if left:
                raise RuntimeError(f"purged, they leave {left}")
            yield "purged, they leave nothing"


def windows(release, files):
    for file in files:
        bits = file.stem[-2:]
        tools = {"32": "i686", "64": "x86_64"}[bits] + "-w64-mingw32-"
        wine = ROOT / "scripts" / "wine"
        with clean_folder() as folder:
            top = unpacked(file, folder)
            for compiler, source, library in (("gcc-win32", "smoke.c", f"libvexlor{bits}.a"), ("gcc-win32", "smoke.c", f"Vexlor{bits}.lib"),
                                              ("g++-win32", "smoke.cpp", f"libvexlor{bits}.a")):
                run(tools + compiler, "-static", f"-I{top}/include", source, top / "lib" / library, "-o", top / "bin" / f"{source}-{library}.exe", cwd=folder)
            try:
                run(wine, "--check", bits, cwd=ROOT)
            except RuntimeError as reason:
                yield f"{file.name}: programs compile and link; not run: {reason}"
                continue
            shutil.copy(folder / "cheques.dbf", top / "bin")
            for program in sorted((top / "bin").glob("*.exe")):
                right(wine, program, cwd=ROOT)
            yield f"{file.name}: programs in C by both import libraries, and in C++, are right under Wine"


def source(release, files):
    with clean_folder() as folder:
        top = unpacked(files[0], folder)
        run("make", "install", "PREFIX=/usr", f"DESTDIR={folder}/root", cwd=top)
        header = next((folder / "root").rglob("vexlor32.h"))
        library = next((folder / "root").rglob("libvexlor32.so"))
        run("cc", "smoke.c", f"-I{header.parent}", f"-L{library.parent}", "-lvexlor32", "-o", "smoke", cwd=folder)
        right("./smoke", cwd=folder, LD_LIBRARY_PATH=str(library.parent))
        yield "built and installed by make install; a program in C is right"


def python(release, files):
    for file in files:
        with clean_folder() as folder:
            if "manylinux" not in file.name:
                platform = file.stem.rpartition("-")[2]
                run(sys.executable, "-m", "pip", "install", "--no-index", "--no-deps", "--only-binary=:all:", f"--platform={platform}", f"--target={folder}/site",
                    file, cwd=folder)
                library = next((folder / "site").rglob("*.dll"))
                if library.read_bytes() != (release.dist / "windows" / "bin" / library.name).read_bytes():
                    raise RuntimeError(f"{file.name} has another {library.name}")
                yield f"{file.name}: pip unpacks it, with {library.name} inside; not run: no Python for Windows here"
                continue
            run(sys.executable, "-m", "venv", "venv", cwd=folder)
            run("venv/bin/pip", "install", "--no-index", file, cwd=folder)
            right("venv/bin/python", "-I", "smoke.py", cwd=folder)
            library = next((folder / "venv").rglob("libvexlor32.so.5"))
            for name, version in re.findall(r"\b(GLIBCXX|GLIBC|CXXABI)_([\d.]+)", run("objdump", "-p", library, cwd=folder)):
                if tuple(map(int, version.split("."))) > PROMISED[name]:
                    raise RuntimeError(f"{file.name} needs {name}_{version}")
            yield f"{file.name}: installed by pip in a new environment, the program is right, and its library needs what the tag says"


def node(release, files):
    with clean_folder() as folder:
        (folder / "package.json").write_text("{}")
        try:
            run("npm", "ping", cwd=folder)
        except RuntimeError as unreachable:
            raise LeftOut("not tried: npm's registry, which has koffi, cannot be reached") from unreachable
        run("npm", "install", "--no-audit", "--no-fund", files[0], cwd=folder)
        right("node", "smoke.js", cwd=folder)
        yield "installed by npm, with koffi; the program is right"


def java(release, files):
    with clean_folder() as folder:
        path = f"{files[0]}:/usr/share/java/jna.jar:."
        run("javac", "-cp", path, "Smoke.java", cwd=folder)
        right("java", "-cp", path, "Smoke", cwd=folder)
        yield "a program that is compiled and run with the jar and JNA is right"


def csharp(release, files):
    needs("mcs")
    with clean_folder() as folder:
        top = unpacked(files[0], folder)
        run("mcs", "-langversion:7", "-target:library", "-out:Vexlor32.Net.dll", *sorted(top.glob("*.cs")), cwd=top)
        run("mcs", f"-r:{top}/Vexlor32.Net.dll", f"-out:{top}/Smoke.exe", "Smoke.cs", cwd=folder)
        right("mono", top / "Smoke.exe", cwd=folder)
        yield "compiled by Mono; the program is right with the library of runtimes/"


def pascal(release, files):
    needs("fpc")
    with clean_folder() as folder:
        top = unpacked(files[0], folder)
        run("fpc", f"-Fu{top}", f"-FE{top}", "smoke.pas", cwd=folder)
        right(top / "smoke", cwd=folder)
        yield "the units compile; the program is right with the library beside it"


def vba(release, files):
    yield "not tried: no Visual Basic here"


def rust(release, files):
    needs("cargo")
    with clean_folder() as folder:
        top = unpacked(files[0], folder)
        run("cargo", "init", "--offline", "--vcs", "none", "--name", "smoke", "program", cwd=folder)
        with (folder / "program" / "Cargo.toml").open("a") as manifest:
            manifest.write(f'vexlor32 = {{ path = "{top}" }}\n')
        shutil.copy(folder / "smoke.rs", folder / "program" / "src" / "main.rs")
        libraries = str(release.dist / "linux" / "lib")
        run("cargo", "build", "--offline", cwd=folder / "program", VEXLOR32_LINK=libraries)
        right("program/target/debug/smoke", cwd=folder, LD_LIBRARY_PATH=libraries)
        yield "a program with the crate, linked with the library of dist/linux, is right"


TRIES = {"debian": debian, "windows": windows, "source": source, "python": python, "node": node, "java": java, "csharp": csharp, "pascal": pascal,
         "vba": vba, "rust": rust}
