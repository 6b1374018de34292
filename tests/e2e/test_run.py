"""Where ./run lets the program keep the user's settings."""

import os
import shutil
import subprocess
import tempfile
import unittest

_ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
_TOLD = '#!/bin/sh\necho "home=$TAVRIX_HOME"\nfor a; do echo "argument=$a"; done\n'


class RunTest(unittest.TestCase):
    """The script beside programs that only tell what they are given."""

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="tavrix-run.")
        self.addCleanup(shutil.rmtree, self.folder)
        self.home = os.path.join(self.folder, "home")
        os.mkdir(self.home)
        self.app = os.path.join(self.folder, "tree", "build", "release", "app")
        tree = os.path.join(self.folder, "tree")
        for path, text in (("scripts/setup", "#!/bin/sh\n"), ("scripts/build", "#!/bin/sh\n"),
                           ("build/release/app/tavrix", _TOLD), ("build/release/bin/tavrix-install", _TOLD)):
            self.write(os.path.join(tree, path), text)
        shutil.copy(os.path.join(_ROOT, "run"), tree)
        self.script = os.path.join(tree, "run")

    def write(self, path, text):
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="ascii") as file:
            file.write(text)
        os.chmod(path, 0o755)

    def run_it(self, *arguments, **environment):
        everything = {"PATH": os.environ["PATH"], "HOME": self.home, "DISPLAY": ":99", **environment}
        return subprocess.run([self.script, *arguments], env=everything, check=True, text=True,
                              stdout=subprocess.PIPE).stdout.splitlines()

    def test_settings_are_kept_in_the_users_own_folder(self):
        kept = os.path.join(self.home, ".local", "share", "tavrix")
        self.assertEqual(self.run_it("a picture.jpg"),
                         [f"home={kept}", f"argument={self.app}/tavrix", f"home={kept}", "argument=a picture.jpg"])
        self.assertTrue(os.path.isdir(kept))

    def test_the_variables_move_them(self):
        own = os.path.join(self.folder, "own")
        self.assertIn(f"home={own}", self.run_it(TAVRIX_HOME=own))
        data = os.path.join(self.folder, "data")
        self.assertIn(f"home={data}/tavrix", self.run_it(XDG_DATA_HOME=data))

    def test_those_of_earlier_runs_are_taken_along_once(self):
        self.write(os.path.join(self.app, "tavrix.ini"), "old")
        self.write(os.path.join(self.app, "SLIDES", "tour.tvs"), "show")
        self.run_it()
        kept = os.path.join(self.home, ".local", "share", "tavrix")
        for name, text in (("tavrix.ini", "old"), (os.path.join("SLIDES", "tour.tvs"), "show")):
            with open(os.path.join(kept, name), encoding="ascii") as file:
                self.assertEqual(file.read(), text)
        self.write(os.path.join(kept, "tavrix.ini"), "new")
        self.run_it()
        with open(os.path.join(kept, "tavrix.ini"), encoding="ascii") as file:
            self.assertEqual(file.read(), "new")
        with open(os.path.join(self.app, "tavrix.ini"), encoding="ascii") as file:
            self.assertEqual(file.read(), "old")


if __name__ == "__main__":
    unittest.main()
