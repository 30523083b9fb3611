"""Makes one archive that runs on any Linux with the C and C++ libraries of this release or newer.

make_bundle.py ARCHIVE OUTPUT: ARCHIVE is the .tar.gz of the installed programs; OUTPUT is written. Added to the programs are
the libraries that they load, Qt's plugins, and the modules of the 3D view. Left to the system are the C and C++ libraries, the
drivers of the graphics card, fonts, and the keyboard's description (xkb)."""

import gzip
import os
import re
import shutil
import subprocess
import sys
import tarfile
import tempfile
from pathlib import Path

# Drivers are made for the system's own versions of these.
OF_THE_SYSTEM = re.compile(r"(ld-linux.*|lib(c|m|dl|pthread|rt|resolv|gcc_s|stdc\+\+))\.so.*")
# Loaded by name while the programs run, see HeifFunctions and VipsFunctions.
LOADED_LIBRARIES = ("libvips.so.42", "libheif.so.1")
PLUGINS = ("platforms/libqxcb.so", "platforms/libqoffscreen.so", "platforms/libqwayland-generic.so",
           "platforms/libqwayland-egl.so", "wayland-shell-integration/*.so", "wayland-decoration-client/*.so",
           "wayland-graphics-integration-client/*.so", "xcbglintegrations/*.so", "platforminputcontexts/*.so",
           "iconengines/libqsvgicon.so", "imageformats/libqsvg.so")
MODULES = ("QtQuick3D", "QtQuick", "QtQml", "QtQml/Models", "QtQml/WorkerScript")
QT_CONF = "[Paths]\nPrefix = ..\nPlugins = lib/plugins\nQmlImports = lib/qml\nQml2Imports = lib/qml\n"


def output_of(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout


def qt_folder(name):
    return Path(output_of("qtpaths6", "--query", name).strip())


def library_path(name):
    """Where the loader finds a library."""
    for line in output_of("/sbin/ldconfig", "-p").splitlines():
        found = re.fullmatch(r"\s*(\S+) \(.*x86-64.*\) => (\S+)", line)
        if found and found[1] == name:
            return Path(found[2])
    raise SystemExit(f"{name} is not installed")


def libraries_of(file):
    """The libraries that a program or library needs, directly or not, by name."""
    found = {}
    for line in output_of("ldd", str(file)).splitlines():
        if "not found" in line:
            raise SystemExit(f"{file}: {line.strip()}")
        named = re.match(r"\s*(\S+) => (\S+) \(", line)
        if named and not OF_THE_SYSTEM.fullmatch(named[1]):
            found[named[1]] = Path(named[2])
    return found


def copy_files(folder, pattern, target):
    """Copies the files of `folder`, not those of folders in it, to `target`; returns the copied libraries."""
    files = [file for file in sorted(folder.glob(pattern)) if file.is_file()]
    target.mkdir(parents=True, exist_ok=True)
    for file in files:
        shutil.copy(file, target)
    return [file for file in files if ".so" in file.name]


def fill(bundle):
    library_folder = bundle / "lib"
    programs = sorted((bundle / "bin").iterdir())
    loading = [*programs, *(library_folder / "quarlin").glob("*.so")]
    for pattern in PLUGINS:
        folder, name = pattern.split("/")
        loading += copy_files(qt_folder("QT_INSTALL_PLUGINS") / folder, name, library_folder / "plugins" / folder)
    for module in MODULES:
        loading += copy_files(qt_folder("QT_INSTALL_QML") / module, "*", library_folder / "qml" / module)
    if list((library_path("libheif.so.1").parent / "libheif/plugins").glob("*.so")):
        raise SystemExit("libheif looks for its codecs in a folder of this system: make the bundle on Debian 12")
    libraries = {}
    for name in LOADED_LIBRARIES:
        libraries[name] = library_path(name)
        loading.append(libraries[name])
    for file in loading:
        libraries.update(libraries_of(file))
    for name, file in libraries.items():
        shutil.copy(file, library_folder / name)
    (bundle / "bin/qt.conf").write_text(QT_CONF)
    for program in programs:
        # The old form of the path also holds for the libraries of libraries, and for those loaded later.
        subprocess.run(["patchelf", "--force-rpath", "--set-rpath", "$ORIGIN/../lib", program], check=True)
    for file in library_folder.rglob("*.so*"):
        file.chmod(0o644)
        # Paths of their own would take precedence; Qt's modules have them.
        subprocess.run(["patchelf", "--remove-rpath", file], check=True)


def pack(folder, output):
    """The same bytes every time: by name, at the time of the programs, without an owner."""
    time = int((folder / "bin/quarlin").stat().st_mtime)

    def plain(entry):
        entry.mtime, entry.uid, entry.gid, entry.uname, entry.gname = time, 0, 0, "", ""
        return entry

    with gzip.GzipFile(output, "wb", mtime=time) as compressed, tarfile.open(fileobj=compressed, mode="w") as archive:
        for path in [folder, *sorted(folder.rglob("*"))]:
            archive.add(path, str(path.relative_to(folder.parent)), recursive=False, filter=plain)


def main():
    archive, output = map(Path, sys.argv[1:])
    with tempfile.TemporaryDirectory(prefix="quarlin-bundle-") as scratch:
        with tarfile.open(archive) as programs:
            programs.extractall(scratch)
        bundle = Path(scratch) / output.name.removesuffix(".tar.gz")
        os.rename(Path(scratch) / archive.name.removesuffix(".tar.gz"), bundle)
        time = (bundle / "bin/quarlin").stat().st_mtime
        fill(bundle)
        os.utime(bundle / "bin/quarlin", (time, time))
        pack(bundle, output)


if __name__ == "__main__":
    main()
