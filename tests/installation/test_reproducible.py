"""Two builds of one commit in two folders are the same bytes. It takes two whole builds, so it runs only where
TAVRIX_REPRODUCIBLE is set; with CCACHE_DISABLE=1 the compiler is asked for everything twice."""

import glob
import os
import shutil
import subprocess
import tempfile
import unittest

_ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")


@unittest.skipUnless(os.environ.get("TAVRIX_REPRODUCIBLE"), "TAVRIX_REPRODUCIBLE is not set")
class ReproducibleTest(unittest.TestCase):

    def packages(self, name, environment):
        """The packages that a clone in a folder of this name makes."""
        folder = tempfile.mkdtemp(prefix=f"tavrix-{name}.")
        self.addCleanup(shutil.rmtree, folder)
        clone = os.path.join(folder, name)
        subprocess.run(["git", "clone", "--quiet", "--no-hardlinks", _ROOT, clone], check=True)
        subprocess.run([os.path.join(clone, "package")], check=True, stdout=subprocess.DEVNULL,
                       env={**os.environ, **environment})
        found = {}
        for path in glob.glob(os.path.join(clone, "build", "package", "*.deb")):
            with open(path, "rb") as file:
                found[os.path.basename(path)] = file.read()
        return found

    def test_the_folder_the_time_and_the_user_make_no_difference(self):
        first = self.packages("one", {"TZ": "Asia/Tokyo", "LC_ALL": "C"})
        second = self.packages("another-folder", {"TZ": "America/New_York", "LC_ALL": "de_DE.UTF-8", "USER": "somebody"})
        self.assertTrue(first)
        self.assertEqual(sorted(first), sorted(second))
        self.assertEqual([name for name in first if first[name] != second[name]], [])


if __name__ == "__main__":
    unittest.main()
