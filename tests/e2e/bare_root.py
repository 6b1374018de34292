"""A system on which nothing of ours is installed, in a folder: the shell and a few of its tools. With TAVRIX_BARE_ROOT the
system in that folder instead, or one that is made there from Debian's archive if there is none (takes a minute)."""

import glob
import os
import re
import shutil
import subprocess
import tempfile

_TOOLS = ("sh", "env", "cat", "cp", "chmod", "dirname", "find", "grep", "kill", "ln", "mkdir", "mktemp", "rm", "sed", "tr",
          "uname", "ls", "id")
_ENTER = """set -e
mount --bind "$2" "$1/media/stick"
mount -o "remount,bind,$3" "$1/media/stick"
mount --rbind /dev "$1/dev"
mount --rbind /proc "$1/proc"
[ ! -d /tmp/.X11-unix ] || mount --bind /tmp/.X11-unix "$1/tmp/.X11-unix"
root=$1
shift 3
exec chroot "$root" /usr/bin/env -i "$@"
"""


def _unshare():
    return ["unshare", "--mount", *([] if os.geteuid() == 0 else ["--map-root-user"])]


def why_not():
    """Why no such system can be entered here; None where it can."""
    with tempfile.TemporaryDirectory() as folder:
        tried = subprocess.run([*_unshare(), "mount", "--bind", folder, "/mnt"], capture_output=True, text=True)
    return None if tried.returncode == 0 else f"no mount namespaces: {tried.stderr.strip()}"


class BareRoot:
    def __init__(self, folder):
        self.folder = os.environ.get("TAVRIX_BARE_ROOT") or folder
        self.kept = self.folder != folder
        if not os.path.exists(os.path.join(self.folder, "usr/bin/env")):
            if self.kept:
                subprocess.run(["debootstrap", "--variant=minbase", "bookworm", self.folder], check=True,
                               stdout=subprocess.DEVNULL)
            else:
                self._fill()
        for name in ("dev", "proc", "tmp/.X11-unix", "media/stick", "home/guest"):
            os.makedirs(os.path.join(self.folder, name), exist_ok=True)

    def _fill(self):
        for name in ("usr/bin", "usr/lib"):
            os.makedirs(os.path.join(self.folder, name))
        for name in ("bin", "lib"):
            os.symlink(f"usr/{name}", os.path.join(self.folder, name))
        os.symlink("usr/lib64", os.path.join(self.folder, "lib64"))
        os.makedirs(os.path.join(self.folder, "usr/lib64"))
        for tool in _TOOLS:
            program = shutil.which(tool, path="/usr/bin:/bin")
            shutil.copy(program, os.path.join(self.folder, "usr/bin", tool))
            listed = subprocess.run(["ldd", program], capture_output=True, text=True).stdout
            for library in re.findall(r"(/\S+)", listed):
                target = os.path.join(self.folder, library.lstrip("/"))
                os.makedirs(os.path.dirname(target), exist_ok=True)
                shutil.copy(library, target)

    def holds_ours(self):
        """Libraries of the program that are installed there after all."""
        return glob.glob(os.path.join(self.folder, "usr/lib/**/lib*Qt6*"), recursive=True)

    def at(self, path):
        return os.path.join(self.folder, path.lstrip("/"))

    def command(self, package, *arguments, mount="ro,nosuid,nodev", **environment):
        """What runs a shell's script there, with a package at /media/stick. Its own folders are /tmp and /home/guest."""
        values = {"HOME": "/home/guest", "PATH": "/usr/bin:/bin", "LANG": "C.UTF-8", **environment}
        return [*_unshare(), "sh", "-c", _ENTER, "sh", self.folder, package, mount,
                *(f"{name}={value}" for name, value in values.items()), "sh", *arguments]

    def content(self):
        """All that lies there, with its size."""
        found = {}
        for folder, folders, files in os.walk(self.folder):
            for name in folders + files:
                path = os.path.join(folder, name)
                status = os.lstat(path)
                found[os.path.relpath(path, self.folder)] = status.st_size if name in files else "folder"
        return found

    def close(self):
        for name in ("home/guest", "tmp"):
            for left in os.listdir(self.at(name)):
                path = os.path.join(self.at(name), left)
                shutil.rmtree(path) if os.path.isdir(path) else os.unlink(path)
