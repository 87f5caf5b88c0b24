"""What making and trying packages share: running tools, and archives that are the same bytes wherever and whenever they are made.

What goes into an archive is {name in the archive: file, text or bytes}; order, times, owners and permissions are fixed.
"""
import gzip
import io
import os
import pathlib
import shutil
import subprocess
import tarfile
import time
import zipfile


class LeftOut(Exception):
    """Cannot be made or tried here; the text says why."""


def needs(program):
    if not shutil.which(program):
        raise LeftOut(f"no {program} on this machine")


def run(*command, cwd, **environment):
    """What the command says, without what the caller's environment would say about libraries; another exit code than 0 is a fault."""
    inherited = {n: v for n, v in os.environ.items() if n not in ("VEXLOR32_LIBRARY", "LD_LIBRARY_PATH", "PYTHONPATH", "NODE_PATH", "CLASSPATH")}
    done = subprocess.run([str(c) for c in command], cwd=cwd, env=inherited | environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, timeout=900)
    if done.returncode:
        raise RuntimeError(f"{' '.join(map(str, command))} ended with {done.returncode}:\n{done.stdout[-4000:]}")
    return done.stdout


def below(folder, into="", only=lambda name: True):
    """The files of a folder, as contents; `only` sees their names in the folder. Symbolic links are left out."""
    found = ((p.relative_to(folder).as_posix(), p) for p in sorted(folder.rglob("*"))
             if p.is_file() and not p.is_symlink() and "__pycache__" not in p.parts)
    return {into + name: file for name, file in found if only(name)}


def bytes_of(source):
    if isinstance(source, pathlib.Path):
        return source.read_bytes()
    return source.encode() if isinstance(source, str) else source


def mode_of(source):
    return 0o755 if isinstance(source, pathlib.Path) and os.access(source, os.X_OK) else 0o644


def compressed(content):
    return gzip.compress(content, 9, mtime=0)


def zip_archive(out, contents, seconds, first=()):
    """Names in `first` stand in front of the others, which is where some readers look for them."""
    moment = time.gmtime(seconds)[:6]
    with zipfile.ZipFile(out, "w") as archive:
        for name in [*first, *sorted(contents.keys() - set(first))]:
            entry = zipfile.ZipInfo(name, moment)
            entry.create_system = 3  # permissions of POSIX
            entry.external_attr = (0o100000 | mode_of(contents[name])) << 16
            archive.writestr(entry, bytes_of(contents[name]), zipfile.ZIP_DEFLATED, 9)
    return out


def tar_archive(out, contents, seconds):
    plain = io.BytesIO()
    with tarfile.open(fileobj=plain, mode="w", format=tarfile.PAX_FORMAT) as archive:
        for name, source in sorted(contents.items()):
            entry = tarfile.TarInfo(name)
            content = bytes_of(source)
            entry.size, entry.mtime, entry.mode = len(content), seconds, mode_of(source)
            archive.addfile(entry, io.BytesIO(content))
    out.write_bytes(compressed(plain.getvalue()))
    return out


def laid_out(folder, contents, seconds):
    """The same as files of a folder, for tools that pack folders themselves."""
    for name, source in contents.items():
        file = folder / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_bytes(bytes_of(source))
        file.chmod(mode_of(source))
        os.utime(file, (seconds, seconds))
    return folder
