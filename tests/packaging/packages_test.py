"""Installs the packages into empty folders and starts the programs from there."""

import gzip
import os
import plistlib
import subprocess
import sys
import tarfile
import tempfile
import unittest
from pathlib import Path
from xml.etree import ElementTree

BUILD = Path(os.environ["QUARLIN_BUILD"])
SOURCE = Path(os.environ["QUARLIN_SOURCE"])
VERSION = os.environ["QUARLIN_VERSION"]
PLUGINS = os.environ["QUARLIN_PLUGINS"]
ICON_SIZES = [16, 24, 32, 48, 64, 128, 256, 512]

scratch = tempfile.TemporaryDirectory(prefix="quarlin-packages-")
FOLDER = Path(scratch.name)
PACKAGES = FOLDER / "packages"


def run(*command, **environment):
    """The standard output of a command, which must succeed. Its environment has only the search path."""
    plain = {"PATH": os.environ["PATH"], "HOME": str(FOLDER), "LC_ALL": "C.UTF-8", "XDG_RUNTIME_DIR": str(FOLDER)}
    done = subprocess.run(
        [str(word) for word in command], env={**plain, **environment}, stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, timeout=120)
    if done.returncode != 0:
        raise AssertionError(f"{command[0]} ended with {done.returncode}:\n{done.stdout}{done.stderr}")
    return done.stdout


def pack(folder):
    for kind in ("DEB", "TGZ"):
        run("cpack", "--config", BUILD / "CPackConfig.cmake", "-G", kind, "-B", folder)


def setUpModule():
    pack(PACKAGES)


def tearDownModule():
    scratch.cleanup()


def the_one(pattern):
    """The only package file that matches this pattern."""
    files = list(PACKAGES.glob(pattern))
    assert len(files) == 1, f"{pattern}: {files}"
    return files[0]


class Installed:
    """Tests that apply wherever the programs are installed; `prefix` is that folder."""

    def test_both_programs_are_there(self):
        self.assertEqual(sorted(file.name for file in (self.prefix / "bin").iterdir()), ["quarlin", "quarlin-cli"])

    def test_each_program_has_a_manual_page(self):
        for program in ("quarlin", "quarlin-cli"):
            page = gzip.decompress((self.prefix / f"share/man/man1/{program}.1.gz").read_bytes()).decode()
            self.assertIn(program, page.replace("\\-", "-"))
            self.assertNotRegex(page, r"@\w+@", "a value that was not filled in")

    def test_every_shell_finds_its_completions(self):
        for file in ("bash-completion/completions/quarlin-cli", "fish/vendor_completions.d/quarlin-cli.fish",
                     "zsh/vendor-completions/_quarlin-cli"):
            self.assertTrue((self.prefix / "share" / file).is_file(), file)

    def test_each_program_prints_its_version(self):
        for program in ("quarlin", "quarlin-cli"):
            self.assertEqual(run(self.prefix / "bin" / program, "--version"), f"{program} {VERSION}\n")

    def test_the_command_line_exports_a_set(self):
        output = self.prefix / "exported"
        run(self.prefix / "bin/quarlin-cli", "material", "--base-color", SOURCE / "samples/brick_wall_basecolor.jpg",
            "--normal", SOURCE / "samples/brick_wall_normal.png", "--name", "Wall", "--size", "512", "--output", output)
        names = ["BaseColor.png", "Normal.png", "ORM.png", "SL_PBR_notes.txt"]
        self.assertEqual(sorted(file.name for file in (output / "Wall").iterdir()),
                         ["Wall.gltf"] + [f"Wall_{name}" for name in names])

    def test_the_window_opens_with_its_icon_and_is_painted(self):
        picture = self.prefix / "window.png"
        run(self.prefix / "bin/quarlin", QT_QPA_PLATFORM="offscreen", QT_PLUGIN_PATH=PLUGINS,
            QT_QPA_GENERIC_PLUGINS=f"first-paint:{picture}")
        told = run("identify", "-format", "%[Title]\n%[Description]\n%w\n%h\n%k", picture).split("\n")
        title, icon_sizes, width, height, colors = told[0], *map(int, told[1:])
        self.assertEqual(title, "VOREK TECH Quarlin")
        self.assertEqual(icon_sizes, len(ICON_SIZES))
        self.assertGreaterEqual((width, height), (1120, 720))
        # Text and icons have smooth edges with many colors; an empty window has only a few.
        self.assertGreater(colors, 100)

    def test_the_material_opens_in_3d(self):
        picture = self.prefix / "view3d.png"
        run(sys.executable, SOURCE / "tests/view3d/on_screen.py", self.prefix / "bin/quarlin", QT_QPA_PLATFORM="xcb",
            QT_PLUGIN_PATH=PLUGINS, QT_QPA_GENERIC_PLUGINS=f"first-paint-in-3d:{picture}")
        title, window, colors = run("identify", "-format", "%[Title]\n%[Description]\n%k", picture).split("\n")
        self.assertEqual((title, window), ("Material in 3D", "quarlin::MaterialWindow"))
        self.assertGreater(int(colors), 100)

    def test_the_menu_entry_is_valid_and_starts_the_window(self):
        entry = self.prefix / "share/applications/quarlin.desktop"
        run("desktop-file-validate", entry)
        lines = entry.read_text().splitlines()
        self.assertIn("Exec=quarlin %F", lines)
        types = next(line for line in lines if line.startswith("MimeType="))
        for kind in ("png", "jpeg", "tiff", "bmp", "gif", "heif", "webp", "avif", "x-tga"):
            self.assertIn(f"image/{kind};", types)
        self.assertIn("Icon=quarlin", lines)

    def test_the_description_for_software_centers_is_valid(self):
        file = self.prefix / "share/metainfo/tech.vorek.quarlin.metainfo.xml"
        found = run("appstreamcli", "validate", "--no-net", "--pedantic", file)
        # Remarks, such as of deprecated tags, do not fail it.
        self.assertNotRegex(found, "(?m)^[EWIP]: ")
        described = ElementTree.parse(file).getroot()
        self.assertIsNotNone(described.find("content_rating"))
        pictures = [image.text for image in described.iterfind("screenshots/screenshot/image")]
        self.assertEqual(len(pictures), 3)
        for picture in pictures:
            self.assertTrue((SOURCE / "docs/images" / Path(picture).name).is_file(), picture)

    def test_the_icon_is_there_in_every_size(self):
        icons = self.prefix / "share/icons/hicolor"
        for size in ICON_SIZES:
            told = run("identify", "-format", "%m %wx%h", icons / f"{size}x{size}/apps/quarlin.png")
            self.assertEqual(told, f"PNG {size}x{size}")
        self.assertTrue((icons / "scalable/apps/quarlin.svg").is_file())

    def test_nothing_points_into_the_build(self):
        for file in self.prefix.rglob("*"):
            if file.is_file() and "bin" not in file.parts:
                self.assertNotIn(str(SOURCE).encode(), file.read_bytes(), file)


class DebianPackage(Installed, unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.package = the_one("*.deb")
        root = FOLDER / "debian"
        run("dpkg-deb", "--extract", cls.package, root)
        cls.prefix = root / "usr"

    def field(self, name):
        return run("dpkg-deb", "--field", self.package, name).strip()

    def packages_in(self, name):
        """The packages of a field, without their versions. Libraries with 64-bit times are named as those before them."""
        return [entry.split()[0].removesuffix("t64") for entry in self.field(name).split(", ")]

    def test_lintian_has_nothing_to_say(self):
        run("lintian", "--allow-root", "--display-info", "--fail-on", "error,warning,info", self.package)

    def test_it_asks_for_the_libraries_that_the_programs_load(self):
        dependencies = self.packages_in("Depends")
        for library in ("libqt6widgets6", "libqt6svg6", "libvips42", "libheif1", "libisal2", "liblcms2-2", "libtbb12"):
            self.assertIn(library, dependencies)

    def test_it_asks_for_the_decoders_of_heic_and_avif(self):
        # Releases that pack them one by one have a folder of them; before, they were part of the library.
        installed = subprocess.run(["dpkg-query", "--search", "*/libheif/plugins/*.so"], stdout=subprocess.PIPE,
                                   stderr=subprocess.DEVNULL, text=True).stdout
        for decoder in ("libde265", "dav1d"):
            if f"libheif-{decoder}.so" in installed:
                self.assertIn(f"libheif-plugin-{decoder}", self.packages_in("Depends"))

    def test_it_recommends_what_only_the_3d_view_loads(self):
        recommended = self.packages_in("Recommends")
        for package in ("libqt6quick3d6", "libqt6quickwidgets6", "qml6-module-qtquick"):
            self.assertIn(package, recommended)
            self.assertNotIn(package, self.packages_in("Depends"))
        # Its name differs between releases.
        self.assertTrue({"qml6-module-quick3d", "qml6-module-qtquick3d"} & set(recommended), recommended)

    def test_nothing_is_left_once_it_is_purged(self):
        # A system without any package. An ordinary user is root there by a user namespace.
        system = FOLDER / "system"
        for folder in ("info", "updates", "triggers"):
            (system / "var/lib/dpkg" / folder).mkdir(parents=True)
        (system / "var/lib/dpkg/status").touch()
        dpkg = [*([] if os.getuid() == 0 else ["unshare", "--map-root-user"]), "dpkg", f"--root={system}", "--log=/dev/null"]

        def files():
            return sorted(str(file.relative_to(system)) for file in system.rglob("*")
                          if "var/lib/dpkg/" not in str(file))

        before = files()
        run(*dpkg, "--force-depends", "--install", self.package)
        self.assertIn("usr/bin/quarlin", files())
        run(*dpkg, "--purge", "quarlin")
        self.assertEqual(files(), before)
        self.assertNotIn("quarlin", (system / "var/lib/dpkg/status").read_text())

    def test_it_recommends_wayland_and_names_the_theme_of_gtk_desktops(self):
        self.assertIn("qt6-wayland", self.field("Recommends").split(", "))
        self.assertEqual(self.field("Suggests"), "qt6-gtk-platformtheme")

    def test_it_bears_the_version(self):
        self.assertEqual(self.field("Version"), f"{VERSION}-1")


class Archive(Installed, unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        package = the_one("*.tar.gz")
        with tarfile.open(package) as archive:
            archive.extractall(FOLDER / "archive")
        cls.prefix = FOLDER / "archive" / package.name.removesuffix(".tar.gz")


class Reproduction(unittest.TestCase):
    def test_packages_made_again_have_the_same_bytes(self):
        # Times are whole seconds; the second packages are made in a later one, in another folder.
        again = FOLDER / "again"
        pack(again)
        for package in PACKAGES.iterdir():
            if package.is_file():
                self.assertEqual(package.read_bytes(), (again / package.name).read_bytes(), package.name)

    def test_resources_have_no_times(self):
        files = list((BUILD / "src").rglob("qrc_*.cpp"))
        self.assertGreater(len(files), 3)
        for resources in files:
            # The first form is the only one without times.
            self.assertIn("int version = 1;", resources.read_text(), resources)


class OtherSystems(unittest.TestCase):
    """Checks of packages for other systems, which can't be built here."""

    def test_the_macos_description_is_a_property_list_that_names_the_icon(self):
        described = plistlib.loads((SOURCE / "packaging/macos/Info.plist.in").read_bytes())
        self.assertEqual(described["CFBundleName"], "Quarlin")
        self.assertEqual(described["CFBundleIconFile"], "quarlin.icns")

    def test_the_windows_icon_holds_its_sizes(self):
        told = run("identify", "-format", "%w ", BUILD / "packaging/icon/quarlin.ico")
        self.assertEqual(sorted(map(int, told.split())), [16, 24, 32, 48, 64, 128, 256])

    def test_the_macos_icon_is_a_chain_of_chunks_that_fills_the_file(self):
        data = (BUILD / "packaging/icon/quarlin.icns").read_bytes()
        self.assertEqual((data[:4], int.from_bytes(data[4:8], "big")), (b"icns", len(data)))
        kinds, at = [], 8
        while at < len(data):
            kinds.append(data[at:at + 4])
            self.assertEqual(data[at + 8:at + 16], b"\x89PNG\r\n\x1a\n")
            at += int.from_bytes(data[at + 4:at + 8], "big")
        self.assertEqual(at, len(data))
        self.assertEqual(kinds, [b"icp4", b"icp5", b"icp6", b"ic07", b"ic08", b"ic09", b"ic10"])


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "--verbose", *sys.argv[1:]])
