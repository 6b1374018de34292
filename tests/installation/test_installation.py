"""What an installation holds, and whether desktops can read it. Where a tool is missing, its test is skipped and says so."""

import configparser
import os
import re
import shutil
import stat
import subprocess
import tempfile
import unittest
from xml.etree import ElementTree

_ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
_BUILD = os.environ.get("TAVRIX_BUILD") or os.path.join(_ROOT, "build", "release")
_SIZES = (16, 22, 24, 32, 48, 64, 128, 256)
_METAINFO = "share/metainfo/example.tavrix.tavrix.metainfo.xml"


def run(*command, **options):
    """What a command that has to succeed says."""
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **options)
    if result.returncode:
        raise AssertionError(f"{command} ended with {result.returncode}:\n{result.stdout}")
    return result.stdout


def needs(tool):
    return unittest.skipUnless(shutil.which(tool), f"{tool} is not installed")


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def source(*path):
    return os.path.join(_ROOT, *path)


def desktop_entry(path):
    """The entry's groups, by their names."""
    entry = configparser.RawConfigParser(delimiters="=", interpolation=None, strict=True)
    entry.optionxform = str
    entry.read(path, encoding="utf-8")
    return entry


class InstallationTest(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.mkdtemp(prefix="tavrix-installation.")
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        run("cmake", "--install", _BUILD, "--prefix", "/usr", env={**os.environ, "DESTDIR": cls.folder})
        cls.tree = os.path.join(cls.folder, "usr")
        cls.data = tempfile.mkdtemp(prefix="tavrix-data.")
        cls.addClassCleanup(shutil.rmtree, cls.data)

    def at(self, *path):
        return os.path.join(self.tree, *path)

    def entry(self):
        return desktop_entry(self.at("share/applications/tavrix.desktop"))

    def types(self):
        return self.entry()["Desktop Entry"]["MimeType"].rstrip(";").split(";")

    # The tree

    def test_what_desktops_and_the_program_look_for_is_there(self):
        wanted = {"bin/tavrix", "bin/tavrix-idle", "libexec/tavrix/tavrix-guard", "libexec/tavrix/tavrix-password",
                  "libexec/tavrix/tavrix-setup", "libexec/xscreensaver/tavrix-saver",
                  "share/xscreensaver/config/tavrix-saver.xml", "share/tavrix/package/TAVRIX.EXE",
                  "share/tavrix/package/TAVRIX.ICO", "share/man/man1/tavrix-idle.1", "share/tavrix/TAVRIX.HLP", "share/tavrix/TIPOFDAY.DAT",
                  "share/applications/tavrix.desktop", "share/mime/packages/tavrix.xml", _METAINFO,
                  "share/man/man1/tavrix.1", "share/bash-completion/completions/tavrix",
                  "share/icons/hicolor/scalable/apps/tavrix.svg",
                  "share/icons/hicolor/scalable/mimetypes/application-x-tavrix-show.svg"}
        for size in _SIZES:
            wanted |= {f"share/icons/hicolor/{size}x{size}/apps/tavrix.png",
                       f"share/icons/hicolor/{size}x{size}/mimetypes/application-x-tavrix-show.png"}
        found = {os.path.relpath(os.path.join(folder, name), self.tree)
                 for folder, _, names in os.walk(self.tree) for name in names}
        self.assertEqual(wanted - found, set())
        self.assertEqual({name for name in found if "tavrix" not in name.lower()}, set())

    def test_nothing_lies_outside_the_prefix_and_all_may_read_it(self):
        self.assertEqual(os.listdir(self.folder), ["usr"])
        for folder, _, names in os.walk(self.tree):
            for name in names:
                mode = stat.S_IMODE(os.stat(os.path.join(folder, name)).st_mode)
                runs = os.path.relpath(folder, self.tree).split(os.sep)[0] in ("bin", "libexec")
                self.assertEqual(mode, 0o755 if runs else 0o644, os.path.join(folder, name))

    def test_a_prefix_of_ones_own_holds_the_same(self):
        with tempfile.TemporaryDirectory(prefix="tavrix-prefix.") as prefix:
            environment = {name: value for name, value in os.environ.items() if name != "DESTDIR"}
            run("cmake", "--install", _BUILD, "--prefix", prefix, env=environment)
            self.assertEqual(sorted(os.walk(prefix))[0][1:], sorted(os.walk(self.tree))[0][1:])
            for name in ("bin/tavrix", "share/tavrix/TAVRIX.HLP"):
                self.assertTrue(os.path.exists(os.path.join(prefix, name)), name)

    @needs("readelf")
    def test_the_program_looks_for_libraries_where_the_system_has_them(self):
        self.assertNotRegex(run("readelf", "--dynamic", "--wide", self.at("bin/tavrix")), r"R(UN)?PATH")

    @needs("readelf")
    def test_nothing_is_bound_late_where_passwords_go_through(self):
        for name in ("tavrix-guard", "tavrix-password"):
            dynamic = run("readelf", "--dynamic", "--wide", self.at("libexec/tavrix", name))
            self.assertRegex(dynamic, r"(?m)FLAGS.*\bNOW\b", name)

    # The version

    def test_every_text_names_the_projects_version(self):
        version = os.environ.get("TAVRIX_VERSION") or re.search(
            r"project\(Tavrix VERSION (\S+)", read(source("CMakeLists.txt")))[1]
        date = os.environ.get("TAVRIX_RELEASE_DATE") or re.search(
            r"set\(TAVRIX_RELEASE_DATE (\S+)\)", read(source("CMakeLists.txt")))[1]
        release = ElementTree.parse(self.at(_METAINFO)).find("releases/release")
        self.assertEqual((release.get("version"), release.get("date")), (version, date))
        self.assertIn(f'"{date}" "Tavrix {version}"', read(self.at("share/man/man1/tavrix.1")).replace(
            f" {date} ", f' "{date}" '))
        self.assertRegex(read(source("CHANGELOG.md")), rf"(?m)^## {re.escape(version)}, {date}$")
        self.assertRegex(read(source("debian", "changelog")).splitlines()[0], rf"^tavrix \({re.escape(version)}\) ")

    # Other folders

    @needs("ninja")
    def test_folders_of_a_distribution_are_told_to_the_programs(self):
        with tempfile.TemporaryDirectory(prefix="tavrix-folders.") as build:
            run("cmake", "-S", _ROOT, "-B", build, "-G", "Ninja", "-DTAVRIX_TESTS=OFF", "-DCMAKE_INSTALL_PREFIX=/usr",
                "-DCMAKE_INSTALL_BINDIR=games", "-DCMAKE_INSTALL_DATADIR=share/games", "-DCMAKE_INSTALL_LIBEXECDIR=lib",
                "-DTAVRIX_XSCREENSAVER_FOLDER=lib/xscreensaver/hacks")
            told = dict(re.findall(r'-D(TAVRIX_\w+_FOLDER)=\\+"(.*?)\\', read(os.path.join(build, "compile_commands.json"))))
            self.assertEqual(told, {"TAVRIX_SHARED_FOLDER": "../share/games/tavrix", "TAVRIX_HELPER_FOLDER": "../lib/tavrix",
                                    "TAVRIX_PROGRAM_FOLDER": "../../../games"})
            # Whoever only packs it has another compiler than ours.
            self.assertNotRegex(read(os.path.join(build, "compile_commands.json")), r"-Werror\b(?!=)")
            # They are put there, and what is built finds them in the same way.
            install = read(os.path.join(build, "src", "app", "cmake_install.cmake"))
            for place in ("games/tavrix", "lib/tavrix/tavrix-guard", "lib/xscreensaver/hacks/tavrix-saver",
                          "share/games/xscreensaver/config"):
                self.assertIn("${CMAKE_INSTALL_PREFIX}/" + place, install)
            self.assertIn(f"{build}/lib/tavrix/tavrix-guard", install)

    # Libraries

    def test_what_is_loaded_late_is_among_the_dependencies(self):
        """Tools find the libraries that a program is linked to, and not those that it loads itself."""
        packages = {"libSDL2-2.0.so.0": "libsdl2-mixer-2.0-0", "libSDL2_mixer-2.0.so.0": "libsdl2-mixer-2.0-0",
                    "libcdio.so.19": "libcdio19", "libX11.so.6": "libx11-6", "libXss.so.1": "libxss1",
                    "libXcursor.so.1": "libxcursor1",
                    # The toolkit is linked to it.
                    "libdbus-1.so.3": None}
        named = set()
        for folder, _, names in os.walk(source("src")):
            for name in names:
                if name.endswith((".h", ".cpp")):
                    named |= set(re.findall(r'"(lib[\w+-]+(?:\.[\w+-]+)*?\.so\.\d+)"', read(os.path.join(folder, name))))
        self.assertEqual(named, set(packages), "each needs its package here and in debian/control")
        control = read(source("debian", "control"))
        for package in filter(None, packages.values()):
            self.assertRegex(control, rf"(?m)[ ,]{re.escape(package)},?$")

    # The entry

    @needs("desktop-file-validate")
    def test_the_entry_is_valid(self):
        self.assertEqual(run("desktop-file-validate", self.at("share/applications/tavrix.desktop")), "")

    def test_the_entry_starts_what_is_installed(self):
        entry = self.entry()
        groups = [entry["Desktop Entry"]]
        for action in entry["Desktop Entry"]["Actions"].rstrip(";").split(";"):
            groups.append(entry[f"Desktop Action {action}"])
        self.assertEqual([group["Name"] for group in groups],
                         ["Tavrix", "Full Screen", "Slide Show Editor", "Screen Saver Settings"])
        self.assertEqual([group["Exec"] for group in groups],
                         ["tavrix --open %f", "tavrix --full-screen %f", "tavrix SHOW", "tavrix C"])
        self.assertEqual(len(entry.sections()), len(groups))
        self.assertEqual(entry["Desktop Entry"]["TryExec"], "tavrix")

    def test_the_types_are_those_of_the_metadata(self):
        provided = ElementTree.parse(self.at(_METAINFO)).findall("provides/mediatype")
        self.assertEqual([media.text for media in provided], self.types())

    def test_the_desktops_list_of_documents_has_types_of_the_entry(self):
        table = dict(re.findall(r'\{"\.(\w+)", "([^"]+)"\}',
                                read(source("src", "backends", "linux", "RecentDocuments.cpp"))))
        kinds = re.findall(r'\{"\.(\w+)", "[^"]*", true', read(source("src", "core", "ImageKinds.h")))
        self.assertGreater(len(kinds), 8)
        for kind in [*kinds, "TVS"]:
            self.assertIn(table.get(kind), self.types(), kind)

    # Types of files

    def content_types(self, *files):
        """What desktops take files for, where this program is installed."""
        mime = os.path.join(self.data, "mime")
        if not os.path.exists(mime):
            shutil.copytree(self.at("share/mime"), mime)
            run("update-mime-database", mime)
        environment = {**os.environ, "XDG_DATA_HOME": self.data, "XDG_DATA_DIRS": "/usr/share", "LC_ALL": "C.UTF-8"}
        found = {}
        for file in files:
            told = run("gio", "info", "--attributes=standard::content-type", file, env=environment)
            found[file] = re.search(r"standard::content-type: (\S+)", told)[1]
        return found

    @needs("gio")
    @needs("update-mime-database")
    def test_what_the_entry_opens_is_what_the_samples_are(self):
        samples = source("samples")
        opened = [os.path.join(folder, name) for folder, _, names in os.walk(samples) for name in names
                  if name.rpartition(".")[2] in ("bmp", "dib", "rle", "jpg", "gif", "ico", "cur", "wmf", "emf", "tvs")]
        found = self.content_types(*opened)
        self.assertEqual({file: kind for file, kind in found.items() if kind not in self.types()}, {})
        self.assertEqual(set(self.types()) - set(found.values()), set(), "a type of which there is no sample")

    @needs("gio")
    @needs("update-mime-database")
    def test_a_show_is_known_by_its_name_and_by_its_first_line(self):
        show = "application/x-tavrix-show"
        with tempfile.TemporaryDirectory(prefix="tavrix-types.") as folder:
            files = {"a.tvs": "x", "b.TVS": "x", "c": '"Tavrix Slide Show"\r\n"Version 1.5"\r\n', "d": '"Tavrix"\r\n'}
            for name, text in files.items():
                with open(os.path.join(folder, name), "w", encoding="ascii", newline="") as file:
                    file.write(text)
            found = self.content_types(*(os.path.join(folder, name) for name in files))
            self.assertEqual([kind for _, kind in sorted(found.items())], [show, show, show, "text/plain"])

    # Icons

    def test_each_icon_has_its_size(self):
        for size in _SIZES:
            for kind, name in (("apps", "tavrix"), ("mimetypes", "application-x-tavrix-show")):
                path = self.at(f"share/icons/hicolor/{size}x{size}/{kind}/{name}.png")
                with open(path, "rb") as file:
                    head = file.read(24)
                self.assertEqual(head[:8], b"\x89PNG\r\n\x1a\n", path)
                self.assertEqual((int.from_bytes(head[16:20], "big"), int.from_bytes(head[20:24], "big")), (size, size))

    @needs("rsvg-convert")
    def test_the_fixed_sizes_are_of_the_drawings(self):
        try:
            from PIL import Image, ImageChops, ImageStat
        except ImportError:
            self.skipTest("python3-pil is not installed")
        with tempfile.TemporaryDirectory(prefix="tavrix-icons.") as drawn:
            run(source("data", "icons", "make"), drawn)
            for size in _SIZES:
                for name in ("tavrix.png", "application-x-tavrix-show.png"):
                    with Image.open(os.path.join(drawn, str(size), name)) as new, \
                            Image.open(source("data", "icons", str(size), name)) as kept:
                        difference = ImageStat.Stat(ImageChops.difference(new.convert("RGBA"), kept.convert("RGBA")))
                        # Another release of the renderer may round otherwise.
                        self.assertLess(max(difference.mean), 2, f"{size}/{name}")

    # Metadata, manual page, completion

    @needs("appstreamcli")
    def test_the_metadata_is_valid(self):
        told = run("appstreamcli", "validate", "--no-net", "--pedantic", self.at(_METAINFO))
        # The reserved name of the host has no known ending, and that is all.
        self.assertEqual(re.findall(r"(?m)^[EWIP]: \S+ (\S+)", told), ["cid-maybe-not-rdns"], told)

    def test_the_screenshots_are_in_the_documentation(self):
        for image in ElementTree.parse(self.at(_METAINFO)).findall("screenshots/screenshot/image"):
            self.assertTrue(os.path.exists(source("docs", "screenshots", image.text.rpartition("/")[2])), image.text)

    @needs("man")
    def test_the_manual_page_is_without_fault(self):
        for name, words in (("tavrix", ("SHOW, S, SLIDE, SLIDE SHOW, SLIDES", "--open", "TAVRIX_DRIVES")),
                            ("tavrix-idle", ("--seconds number",))):
            page = self.at(f"share/man/man1/{name}.1")
            result = subprocess.run(["man", "--warnings", "--encoding=UTF-8", "--local-file", page], text=True,
                                    env={**os.environ, "LC_ALL": "C.UTF-8", "MANWIDTH": "80", "MANROFFSEQ": ""},
                                    stdout=subprocess.PIPE, stderr=subprocess.PIPE)
            self.assertEqual((result.returncode, result.stderr), (0, ""))
            if "minimized" in result.stdout:
                self.skipTest("this system shows no manual pages")
            for word in words:
                self.assertIn(word, re.sub(".\b", "", result.stdout))

    def test_the_manual_page_names_every_variable(self):
        read_ones = set()
        for folder, _, names in os.walk(source("src")):
            for name in names:
                if name.endswith(".cpp"):
                    read_ones |= set(re.findall(r'EnvironmentValue\("(TAVRIX_\w+)"', read(os.path.join(folder, name))))
        self.assertIn("TAVRIX_HOME", read_ones)
        # It is set by what starts a packed show, and nobody else.
        read_ones.remove("TAVRIX_EXECUTABLE")
        page = read(self.at("share/man/man1/tavrix.1"))
        self.assertEqual({name for name in read_ones if f".B {name}\n" not in page}, set())

    def complete(self, line):
        """What the completion offers at the end of a line in a folder of files of all kinds."""
        library = "/usr/share/bash-completion/bash_completion"
        if not os.path.exists(library):
            self.skipTest("bash-completion is not installed")
        with tempfile.TemporaryDirectory(prefix="tavrix-completion.") as folder:
            for name in ("photo.jpg", "photo.JPG", "photo.jpeg", "notes.txt", "tour.tvs", "a:b.jpg"):
                open(os.path.join(folder, name), "w", encoding="ascii").close()
            script = (f"shopt -s extglob; . {library}; . {self.at('share/bash-completion/completions/tavrix')}; "
                      'COMP_LINE=$1; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); COMP_POINT=${#COMP_LINE}; '
                      'COMP_WORDBREAKS=" :"; _tavrix; printf "%s\\n" "${COMPREPLY[@]}"')
            # As readline splits it.
            words = re.findall(r"[^\s:]+|:+", line) + ([""] if line.endswith(" ") else [])
            return sorted(run("bash", "--norc", "-c", script, "bash", line, *words, cwd=folder).split())

    def test_words_and_files_are_completed(self):
        self.assertEqual(self.complete("tavrix TH"), ["THUMBNAIL"])
        self.assertEqual(self.complete("tavrix S"), ["SCRNSAVE", "SHOW"])
        self.assertEqual(self.complete("tavrix ph"), ["photo.JPG", "photo.jpg"])
        self.assertEqual(self.complete("tavrix to"), ["tour.tvs"])
        self.assertEqual(self.complete("tavrix --"), ["--full-screen", "--open"])
        self.assertEqual(self.complete("tavrix --open ph"), ["photo.JPG", "photo.jpeg", "photo.jpg"])
        self.assertEqual(self.complete("tavrix SCRNSAVE "), ["tour.tvs"])

    def test_small_letters_are_completed_to_words_where_no_file_begins_so(self):
        self.assertEqual(self.complete("tavrix sc"), ["SCRNSAVE"])
        self.assertEqual(self.complete("tavrix t"), ["tour.tvs"])

    def test_only_what_stands_behind_a_colon_is_completed(self):
        for line in ("tavrix a:", "tavrix --open a:"):
            self.assertEqual(self.complete(line), ["b.jpg"], line)


if __name__ == "__main__":
    unittest.main()
