"""Debian packages of what scripts/release has built. packaging/debian has what people write; dpkg's tools make the rest."""
import hashlib
import os
import re
import shutil

from packages_basics import below, bytes_of, compressed, laid_out, needs, run

LIBRARIES = "usr/lib/x86_64-linux-gnu/"
# Where the files of dist/linux go that are not where Debian wants them.
MOVED = [("lib/", LIBRARIES), ("share/zsh/site-functions/", "usr/share/zsh/vendor-completions/"), ("", "usr/")]
# Packages, and the files of dist/linux that are theirs. Files that name folders are made anew, for those of Debian.
FILES = {
    "libvexlor32-5": r"lib/libvexlor32\.so\.5",
    "libvexlor32-dev": r"include/|lib/libvexlor32\.so$|lib/vexlor32-link",
    "vexlor": r"bin/|share/",
}
NAMING_FOLDERS = {"vexlor32.pc": "pkgconfig/", "vexlor32Config.cmake": "cmake/vexlor32/", "vexlor32ConfigVersion.cmake": "cmake/vexlor32/"}
COMPRESSED = "share/man/"


def configured(root, work):
    """The files that name the folders of the installation, as the build makes them for Debian's."""
    run("cmake", "--preset", "release-native", "-B", work, "-DCMAKE_INSTALL_PREFIX=/usr", f"-DCMAKE_INSTALL_LIBDIR={LIBRARIES.removeprefix('usr/')[:-1]}",
        cwd=root)
    return {f"{LIBRARIES}{folder}{name}": work / "generated" / name for name, folder in NAMING_FOLDERS.items()}


def placed(name):
    start, instead = next(moved for moved in MOVED if name.startswith(moved[0]))
    return instead + name.removeprefix(start)


def contents_of(package, release, named_folders):
    contents = {}
    for name, file in below(release.dist / "linux", only=re.compile(FILES[package]).match).items():
        if name.startswith(COMPRESSED):
            contents[f"usr/{name}.gz"] = compressed(file.read_bytes())
        else:
            contents[placed(name)] = file
    if package == "libvexlor32-dev":
        contents |= named_folders
    folder = release.root / "packaging" / "debian"
    documents = f"usr/share/doc/{package}/"
    contents[documents + "copyright"] = folder / "copyright"
    contents[documents + "changelog.gz"] = compressed(bytes_of(release.root / "CHANGELOG.md"))
    contents[documents + "changelog.Debian.gz"] = compressed(changelog(release).encode())
    overrides = folder / f"{package}.lintian-overrides"
    if overrides.exists():
        contents[f"usr/share/lintian/overrides/{package}"] = overrides
    return contents


def changelog(release):
    maintainer = re.search(r"^Maintainer: (.*)", (release.root / "packaging/debian/control").read_text(), re.MULTILINE)[1]
    return f"""vexlor32 ({release.debian}) unstable; urgency=medium

  * Packages of this version; changelog.gz tells what it brings.

 -- {maintainer}  {release.moment('%a, %d %b %Y %H:%M:%S +0000')}
"""


def library_control(package, release, stage, work):
    """What other packages need to know of the library in order to depend on it."""
    since = release.debian.rpartition("-")[0]
    (stage / "DEBIAN" / "shlibs").write_text(f"libvexlor32 5 {package} (>= {since})\n")
    (stage / "DEBIAN" / "triggers").write_text("activate-noawait ldconfig\n")
    run("dpkg-gensymbols", f"-p{package}", f"-v{since}", f"-P{stage}", f"-O{stage}/DEBIAN/symbols", cwd=work)


def deb(package, release, out, work, named_folders):
    stage = work / package
    laid_out(stage, contents_of(package, release, named_folders), release.seconds)
    if package == "libvexlor32-5":
        (stage / LIBRARIES / "libvexlor32.so.5").symlink_to("libvexlor32.so.5.0")
    programs = [*stage.glob("usr/bin/*"), *stage.glob(LIBRARIES + "*.so.*.*")]
    for program in stage.glob("usr/bin/*"):
        run("chrpath", "--delete", program, cwd=work)  # the system knows where the library is
    variables = work / "substvars"
    variables.unlink(missing_ok=True)
    if programs:
        run("dpkg-shlibdeps", f"-T{variables}", *programs, cwd=work)
    (stage / "DEBIAN").mkdir()
    files = [p for p in sorted(stage.rglob("*")) if p.is_file() and not p.is_symlink()]
    (stage / "DEBIAN" / "md5sums").write_text("".join(f"{hashlib.md5(p.read_bytes()).hexdigest()}  {p.relative_to(stage)}\n" for p in files))
    if package == "libvexlor32-5":
        library_control(package, release, stage, work)
    run("dpkg-gencontrol", f"-p{package}", f"-P{stage}", f"-T{variables}", "-fdebian/files", cwd=work)
    for path in [stage, *stage.rglob("*")]:
        if path.is_dir():
            path.chmod(0o755)
        elif path.parent.name == "DEBIAN":
            path.chmod(0o644)
        os.utime(path, (release.seconds, release.seconds), follow_symlinks=False)
    file = out / f"{package}_{release.debian}_amd64.deb"
    run("dpkg-deb", "--root-owner-group", "-Zxz", "--build", stage, file, cwd=work, SOURCE_DATE_EPOCH=str(release.seconds))
    return file


def debs(release, out, work):
    for tool in ("dpkg-shlibdeps", "chrpath"):
        needs(tool)
    (work / "debian").mkdir()
    shutil.copy(release.root / "packaging" / "debian" / "control", work / "debian")
    (work / "debian" / "changelog").write_text(changelog(release))
    named_folders = configured(release.root, work / "configured")
    return [deb(package, release, out, work, named_folders) for package in FILES]
