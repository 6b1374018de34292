"""What ./package and scripts/setup do with what is not theirs, beside tools that only tell what they are asked."""

import os
import shutil
import subprocess
import tempfile
import unittest

_ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
_MAKES = """#!/bin/sh
pwd > ../built-in
ls -A > ../built-from
for name in tavrix tavrix-data; do echo new > "../${name}_1.2.3_all.deb"; done
echo new > ../tavrix_1.2.3_amd64.changes
"""


class ScriptTest(unittest.TestCase):

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="tavrix scripts.")
        self.addCleanup(shutil.rmtree, self.folder)
        self.tree = os.path.join(self.folder, "tree")
        self.tools = os.path.join(self.folder, "tools")
        # It counts what is explained to it for a failure, where it is to show that.
        self.write("tools/lintian", '#!/bin/sh\necho "$@" > asked\ncase $* in *--show-overrides*) exit 2 ;; esac\n')
        for name in ("package", "scripts/setup"):
            os.makedirs(os.path.dirname(os.path.join(self.tree, name)), exist_ok=True)
            shutil.copy(os.path.join(_ROOT, name), os.path.join(self.tree, name))

    def write(self, path, text, mode=0o755):
        path = os.path.join(self.folder, path)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="ascii") as file:
            file.write(text)
        os.chmod(path, mode)

    def read(self, path):
        with open(os.path.join(self.folder, path), encoding="ascii") as file:
            return file.read()

    def run_it(self, name, *arguments, path=None):
        return subprocess.run(["/bin/bash", os.path.join(self.tree, name), *arguments], text=True, cwd=self.folder,
                              env={"PATH": path or f"{self.tools}:{os.environ['PATH']}", "HOME": self.folder,
                                   "CCACHE_DISABLE": "1"}, stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)


class PackageTest(ScriptTest):

    def setUp(self):
        super().setUp()
        self.write("tools/dpkg-buildpackage", _MAKES)
        self.write("tree/scripts/setup", "#!/bin/sh\n")
        self.write("tree/CMakeLists.txt", "project(Tavrix VERSION 1.2.3 LANGUAGES CXX)\n", 0o644)
        self.write("tree/debian/control", "Source: tavrix\n\nPackage: tavrix\n\nPackage: tavrix-data\n", 0o644)

    def make(self, *arguments):
        result = self.run_it("package", *arguments)
        self.assertEqual(result.returncode, 0, result.stderr)
        return result.stdout

    def test_a_folder_keeps_what_is_not_of_a_former_run(self):
        for name in ("other_1.0_all.deb", "tavrix-tools_1.0_all.deb", "other_1.0_amd64.changes", "tavrix_1.2.2_all.deb",
                     "tavrix-data_1.2.2_all.deb", "tavrix_1.2.2_amd64.changes", "tavrix_1.2.2_amd64.buildinfo"):
            self.write(f"mine/{name}", "old")
        told = self.make("mine")
        self.assertEqual(sorted(name for name in os.listdir(os.path.join(self.folder, "mine"))
                                if name.endswith((".deb", ".changes", ".buildinfo"))),
                         ["other_1.0_all.deb", "other_1.0_amd64.changes", "tavrix-data_1.2.3_all.deb",
                          "tavrix-tools_1.0_all.deb", "tavrix_1.2.3_all.deb", "tavrix_1.2.3_amd64.changes"])
        self.assertEqual([os.path.basename(line) for line in told.splitlines()],
                         ["tavrix-data_1.2.3_all.deb", "tavrix_1.2.3_all.deb"])
        self.assertTrue(self.read("mine/asked").endswith(" ./tavrix_1.2.3_amd64.changes\n"))

    @unittest.skipUnless(shutil.which("git"), "git is not installed")
    def test_a_releases_archive_is_packed_as_it_is_even_in_a_repository_of_others(self):
        subprocess.run(["git", "init", "--quiet", self.folder], check=True)
        self.write("tree/build/left", "")
        self.make()
        self.assertEqual(self.read("tree/build/package/built-from").split(),
                         ["CMakeLists.txt", "debian", "package", "scripts"])

    def test_the_packages_may_lie_in_a_folder_of_the_archive(self):
        self.make("tree/out")
        self.assertNotIn("out", self.read("tree/out/built-from").split())

    def test_an_option_is_no_folder(self):
        result = self.run_it("package", "--help")
        self.assertEqual((result.returncode, result.stdout), (2, ""))
        self.assertIn("./package [FOLDER]", result.stderr)


class SetupTest(ScriptTest):

    def tools_only(self, *names):
        """A path that holds these tools alone, which fail, and what tells that the user is not root."""
        os.symlink(shutil.which("sed"), os.path.join(self.tools, "sed"))
        self.write("tools/id", "#!/bin/sh\necho 1000\n")
        for name in names:
            self.write(f"tools/{name}", "#!/bin/sh\nexit 1\n")
        return self.tools

    def test_without_a_group_it_tells_them(self):
        result = self.run_it("scripts/setup", path=self.tools_only("dpkg-query", "apt-get"))
        self.assertEqual(result.returncode, 2)
        self.assertIn("scripts/setup build", result.stderr)

    def test_another_system_is_told_what_is_wanted_and_may_have_it(self):
        result = self.run_it("scripts/setup", "package", path=self.tools_only())
        self.assertEqual(result.returncode, 0)
        self.assertIn("lintian", result.stderr)

    def test_without_root_or_sudo_it_says_what_is_missing(self):
        result = self.run_it("scripts/setup", "package", path=self.tools_only("dpkg-query", "apt-get"))
        self.assertEqual(result.returncode, 1)
        self.assertIn("debhelper dpkg-dev lintian", result.stderr)


if __name__ == "__main__":
    unittest.main()
