"""The Debian packages on a bare Debian: installed, started from the menus, by a double click and as a screen saver, upgraded,
and taken away again. It needs root, debootstrap, the archive of Debian and some minutes, so it runs only where
TAVRIX_PACKAGES names the folder of the packages (./package makes them). TAVRIX_BARE_ROOT names a folder that keeps the bare
Debian for the next run."""

import ctypes
import glob
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "e2e"))

_PACKAGES = os.environ.get("TAVRIX_PACKAGES", "")
_SAMPLES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "samples")
_MIRROR = "http://deb.debian.org/debian"
_USER = 1000
# What a desktop has and the packages do not ask for.
_DESKTOP = ("libglib2.0-bin", "shared-mime-info", "desktop-file-utils", "hicolor-icon-theme")
# What installing anything changes.
_ALWAYS = re.compile(r"^(var/(lib/(apt|dpkg|systemd)|log|cache)/|etc/ld\.so\.cache$|tmp/|root/|proc/|dev/|sys/|"
                     r"usr/share/mime/|usr/share/applications/mimeinfo\.cache$|usr/share/icons/[^/]*/icon-theme\.cache$|"
                     r"usr/lib/python3|home/)")


_CLONE_NEWNS = 0x20000


def why_not():
    if not _PACKAGES:
        return "TAVRIX_PACKAGES names no folder of packages"
    if os.geteuid() != 0:
        return "it needs root"
    missing = [tool for tool in ("debootstrap", "chroot", "unshare", "dpkg-deb", "Xvfb") if not shutil.which(tool)]
    if missing:
        return f"{', '.join(missing)} is missing"
    if subprocess.run(["unshare", "--mount", "true"], check=False).returncode:
        return "no file system may be mounted here"
    return None


def run(*command, **options):
    result = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                            **options)
    if result.returncode:
        raise AssertionError(f"{command} ended with {result.returncode}:\n{result.stdout[-4000:]}")
    return result.stdout


def enter_own_mounts():
    """From here on no mount is seen by others, and each ends with this process, however that ends."""
    if ctypes.CDLL(None, use_errno=True).unshare(_CLONE_NEWNS):
        raise OSError(ctypes.get_errno(), "unshare")
    run("mount", "--make-rprivate", "/")


def remove(folder):
    """Removes a folder, but never what is still mounted in it."""
    with open("/proc/self/mounts", encoding="utf-8") as file:
        if not any(line.split()[1].startswith(folder + "/") for line in file):
            shutil.rmtree(folder, ignore_errors=True)


class BareDebian:
    """A minimal Debian in a folder, on top of one that is kept as it is."""

    def __init__(self, folder):
        self.base = os.environ.get("TAVRIX_BARE_ROOT") or os.path.join(folder, "base")
        if not os.path.exists(os.path.join(self.base, "usr", "bin", "dpkg")):
            run("debootstrap", "--variant=minbase", "bookworm", self.base, _MIRROR)
        self.root = os.path.join(folder, "root")
        layers = [os.path.join(folder, name) for name in ("changed", "work")]
        for path in (self.root, *layers):
            os.mkdir(path)
        self._mounted = []
        self.mount("-t", "overlay", "-o", f"lowerdir={self.base},upperdir={layers[0]},workdir={layers[1]}", "overlay", "")
        for place in ("proc", "dev", "dev/pts", "sys"):
            self.mount("--rbind" if place == "dev" else "--bind", "/" + place, place)
        shutil.copy("/etc/resolv.conf", os.path.join(self.root, "etc", "resolv.conf"))
        with open(os.path.join(self.root, "usr", "sbin", "policy-rc.d"), "w", encoding="ascii") as file:
            file.write("#!/bin/sh\nexit 101\n")  # no service starts
        os.chmod(file.name, 0o755)

    def mount(self, *arguments):
        place = os.path.join(self.root, arguments[-1])
        os.makedirs(place, exist_ok=True)
        run("mount", *arguments[:-1], place)
        self._mounted.append(place)

    def close(self):
        for place in reversed(self._mounted):
            subprocess.run(["umount", "--lazy", place], check=False)

    def at(self, *path):
        return os.path.join(self.root, *path)

    def root_runs(self, *command):
        return run("chroot", self.root, "env", "-i", "PATH=/usr/sbin:/usr/bin:/sbin:/bin", "DEBIAN_FRONTEND=noninteractive",
                   "LC_ALL=C.UTF-8", "HOME=/root", *command)

    def files(self, *folders):
        """Every file, with what is in it, of the system or of some of its folders."""
        found = {}
        for top in folders or ("",):
            for folder, below, names in os.walk(self.at(top)):
                relative = os.path.relpath(folder, self.root)
                if relative in ("proc", "dev", "sys"):
                    below.clear()
                    continue
                for name in names:
                    path = os.path.join(folder, name)
                    status = os.lstat(path)
                    what = os.readlink(path) if os.path.islink(path) else (status.st_size, status.st_mode)
                    found[os.path.normpath(os.path.join(relative, name))] = what
        return found


@unittest.skipIf(why_not(), why_not())
class PackagesTest(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        from driver import Session
        cls.folder = tempfile.mkdtemp(prefix="tavrix-packages.")
        cls.addClassCleanup(remove, cls.folder)
        enter_own_mounts()
        cls.debian = BareDebian(cls.folder)
        cls.addClassCleanup(cls.debian.close)
        cls.debian.root_runs("apt-get", "update", "--quiet")
        cls.debian.root_runs("apt-get", "install", "--yes", "--no-install-recommends", *_DESKTOP)
        cls.debian.root_runs("useradd", "--create-home", "--uid", str(_USER), "user")
        cls.session = Session()
        cls.addClassCleanup(cls.session.close)
        cls.screen = cls.session.screen
        cls.debian.mount("--bind", "/tmp/.X11-unix", "tmp/.X11-unix")
        cls.home = cls.debian.at("home", "user")
        pictures = os.path.join(cls.home, "pictures")
        shutil.copytree(os.path.join(_SAMPLES, "show"), os.path.join(pictures, "show"))
        shutil.copy(os.path.join(_SAMPLES, "photo.jpg"), os.path.join(pictures, "Käthe & ich.jpeg"))
        for folder, _, names in os.walk(cls.home):
            for path in (folder, *(os.path.join(folder, name) for name in names)):
                os.chown(path, _USER, _USER)

    def install(self, *packages):
        for package in packages:
            shutil.copy(package, self.debian.at("tmp"))
        names = [os.path.join("/tmp", os.path.basename(package)) for package in packages]
        return self.debian.root_runs("apt-get", "install", "--yes", "--no-install-recommends", *names)

    def user_starts(self, *command):
        """A user of that Debian starts something; what it says is in the log."""
        log = os.path.join(self.folder, "user.log")
        environment = [f"DISPLAY={self.screen.environment['DISPLAY']}", "HOME=/home/user", "PATH=/usr/bin:/bin",
                       "LC_ALL=C.UTF-8", "USER=user", "XDG_CURRENT_DESKTOP=test"]
        return self.session.children.start(
            ["chroot", f"--userspec={_USER}:{_USER}", self.debian.root, "env", "-i", *environment, *command],
            {"PATH": os.environ["PATH"]}, log)

    def window(self, title):
        from driver import wait_until

        def told():
            with open(os.path.join(self.folder, "user.log"), encoding="utf-8", errors="replace") as file:
                return f"{title!r}; there are {[w.title for w in self.screen.windows()]}; {file.read()[-2000:]}"
        return wait_until(lambda: next((w for w in self.screen.windows() if w.title == title), None), told, limit=60)

    def press_in(self, title, key):
        """Presses a key in a window and waits for its end."""
        from driver import wait_until
        window = self.window(title)
        self.screen.activate(window)
        wait_until(lambda: self.screen.active() == window.id, f"the keyboard on {title!r}")
        self.screen.press(key)
        wait_until(lambda: window.id not in [w.id for w in self.screen.windows()], f"the end of {title!r}")

    def settle(self):
        """What comes at a first start is answered; no later start asks."""
        self.press_in("Tip of the Day", "Return")
        self.press_in("About Tavrix", "Escape")

    def quiet(self):
        settings = os.path.join(self.home, ".local", "share", "tavrix", "tavrix.ini")
        with open(settings, encoding="cp1252", newline="") as file:
            text = file.read()
        with open(settings, "w", encoding="cp1252", newline="") as file:
            file.write(text.replace("[Viewer]\r\n", "[Viewer]\r\nStartupDialog=0\r\nForeignKey=kept\r\n"))
        store = os.path.join(self.home, ".config", "tavrix", "settings")
        with open(store, "a", encoding="utf-8") as file:
            file.write("Show Tips at Startup=0\n")

    def user_files(self):
        return {name for name in self.debian.files("home/user") if "/pictures/" not in name
                and not os.path.basename(name).startswith(".bash") and not name.endswith(".profile")}

    def upgraded(self, package):
        """The package with the next version."""
        unpacked = os.path.join(self.folder, "upgrade", os.path.basename(package))
        os.makedirs(os.path.dirname(unpacked), exist_ok=True)
        run("dpkg-deb", "--raw-extract", package, unpacked)
        control = os.path.join(unpacked, "DEBIAN", "control")
        with open(control, encoding="utf-8") as file:
            text = file.read()
        version = re.search(r"(?m)^Version: (\S+)$", text)[1]
        with open(control, "w", encoding="utf-8") as file:
            file.write(text.replace(version, version + "+next"))
        result = unpacked + ".next.deb"
        run("dpkg-deb", "--root-owner-group", "--build", unpacked, result)
        return result

    def test_from_the_first_to_the_last_day(self):
        packages = sorted(path for path in glob.glob(os.path.join(os.path.abspath(_PACKAGES), "*.deb"))
                          if "-dbgsym_" not in path)
        self.assertTrue(packages, f"no packages in {_PACKAGES}")
        names = [os.path.basename(path).partition("_")[0] for path in packages]
        before = self.debian.files()

        self.install(*packages)
        self.assertEqual(self.user_files(), set(), "an installation leaves the users alone")

        # From the menus, for the first time.
        self.user_starts("gio", "launch", "/usr/share/applications/tavrix.desktop")
        self.settle()
        self.press_in("Tavrix", "Escape")
        self.quiet()

        # By a double click, on a name that the command line refuses.
        self.user_starts("gio", "open", "/home/user/pictures/Käthe & ich.jpeg")
        self.press_in("Tavrix - [C:\\home\\user\\pictures\\Käthe & ich.jpeg]", "Escape")
        self.user_starts("gio", "open", "/home/user/pictures/show/tour.tvs")
        from driver import wait_until
        stage = wait_until(lambda: next((w for w in self.screen.windows() if w.width == self.screen.width
                                         and w.height == self.screen.height and not w.popup), None), "the stage")
        self.press_in(stage.title, "Escape")
        self.press_in("Tavrix", "Escape")

        # As a screen saver.
        self.user_starts("tavrix", "SCRNSAVE", "/home/user/pictures/show/tour.tvs")
        self.press_in("Screen Saver Main Form", "a")

        # By itself, when nobody works, with the show that was chosen for that.
        with open(os.path.join(self.home, ".config", "tavrix", "settings"), "a", encoding="utf-8") as file:
            file.write("CurrentSaver=C:\\home\\user\\pictures\\show\\tour.tvs\n")
        idle = self.user_starts("tavrix-idle", "--seconds", "2")
        self.press_in("Screen Saver Main Form", "a")
        self.session.children.end(idle)

        # What belongs to the user is in the user's folders.
        mine = self.user_files()
        self.assertIn("home/user/.local/share/tavrix/tavrix.ini", mine)
        self.assertEqual({name for name in mine if "tavrix" not in name and "recently-used" not in name
                          and "/.cache/" not in name}, set())

        # The next version finds all as it was.
        self.install(*(self.upgraded(package) for package in packages))
        self.assertIn("+next", self.debian.root_runs("dpkg-query", "--show", "--showformat=${Version}", "tavrix"))
        self.user_starts("gio", "open", "/home/user/pictures/Käthe & ich.jpeg")
        self.press_in("Tavrix - [C:\\home\\user\\pictures\\Käthe & ich.jpeg]", "Escape")
        with open(os.path.join(self.home, ".local", "share", "tavrix", "tavrix.ini"), encoding="cp1252") as file:
            self.assertIn("ForeignKey=kept", file.read())

        # Taken away, nothing of it is left but what is the user's.
        mine = self.user_files()
        self.debian.root_runs("apt-get", "purge", "--yes", "--autoremove", *names)
        after = self.debian.files()
        self.assertEqual({name for name in set(after) - set(before) if not _ALWAYS.match(name)}, set())
        self.assertEqual({name for name in set(before) - set(after) if not _ALWAYS.match(name)}, set())
        self.assertEqual({name for name in set(before) & set(after) if before[name] != after[name]
                          and not _ALWAYS.match(name)}, set())
        self.assertEqual({name for name in after if "tavrix" in name and not name.startswith(("home/", "var/log/", "tmp/",
                                                                                             "var/cache/apt/"))}, set())
        self.assertEqual(self.user_files(), mine)


if __name__ == "__main__":
    unittest.main()
