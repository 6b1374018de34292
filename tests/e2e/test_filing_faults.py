"""Images are copied and moved where a disk is full, and while the program is killed."""

import os
import shutil
import subprocess
import tempfile
import unittest

from PIL import Image

from driver import drive_path, wait_until
from support import ProgramTest
from test_edit import turned

# Files below FULL_FOLDER take FULL_BYTES bytes, all together.
FULL_DISK = r"""
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

static long written = 0;

/* How many of so many bytes a file may take; all of them elsewhere. */
static size_t room(int file, size_t count) {
    char link[64], path[4096];
    const char* folder = getenv("FULL_FOLDER");
    const char* most = getenv("FULL_BYTES");
    if (folder == NULL || most == NULL) return count;
    snprintf(link, sizeof link, "/proc/self/fd/%d", file);
    ssize_t length = readlink(link, path, sizeof path - 1);
    if (length < 0) return count;
    path[length] = 0;
    if (strncmp(path, folder, strlen(folder)) != 0) return count;
    long left = atol(most) - written;
    if (left < 0) left = 0;
    return count < (size_t)left ? count : (size_t)left;
}

ssize_t write(int file, const void* from, size_t count) {
    static ssize_t (*real)(int, const void*, size_t);
    if (real == NULL) real = dlsym(RTLD_NEXT, "write");
    size_t may = room(file, count);
    if (may == 0 && count > 0) { errno = ENOSPC; return -1; }
    ssize_t done = real(file, from, may);
    if (done > 0 && room(file, (size_t)-1) != (size_t)-1) written += done;
    return done;
}

ssize_t copy_file_range(int from, off64_t* at, int to, off64_t* target, size_t count, unsigned flags) {
    static ssize_t (*real)(int, off64_t*, int, off64_t*, size_t, unsigned);
    if (real == NULL) real = dlsym(RTLD_NEXT, "copy_file_range");
    size_t may = room(to, count);
    if (may == 0 && count > 0) { errno = ENOSPC; return -1; }
    ssize_t done = real(from, at, to, target, may, flags);
    if (done > 0 && room(to, (size_t)-1) != (size_t)-1) written += done;
    return done;
}

int posix_fallocate(int file, off_t from, off_t length) {
    return room(file, (size_t)length) < (size_t)length ? ENOSPC : 0;
}
"""


def full_disk_library(folder):
    """The path of the library; None where there is no compiler."""
    compiler = next((found for found in map(shutil.which, ("cc", "gcc", "clang")) if found), None)
    if compiler is None:
        return None
    source, library = os.path.join(folder, "full.c"), os.path.join(folder, "full.so")
    with open(source, "w", encoding="ascii") as file:
        file.write(FULL_DISK)
    subprocess.run([compiler, "-shared", "-fPIC", "-O1", "-o", library, source, "-ldl"], check=True)
    return library


class FullDiskTest(ProgramTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.library = full_disk_library(cls.session.folder)
        if cls.library is None:
            raise unittest.SkipTest("no C compiler makes the library that fills the disk")

    def contents(self, folder):
        found = {}
        for name in os.listdir(folder):
            with open(os.path.join(folder, name), "rb") as file:
                found[name] = file.read()
        return found

    def elsewhere(self):
        """A folder on another file system."""
        folder = tempfile.mkdtemp(prefix="tavrix-e2e.", dir="/dev/shm")
        self.addCleanup(shutil.rmtree, folder, ignore_errors=True)
        return folder

    def carry(self, verb, target, files_that_fit):
        """Carries a.bmp, b.bmp and c.bmp, of which the second replaces one. What stood before and stands then: in the
        source, and in the target."""
        for name in ("a.bmp", "b.bmp", "c.bmp"):
            self.picture(200, 100, name)
        size = os.path.getsize(os.path.join(self.home.pictures, "a.bmp"))
        with open(os.path.join(target, "b.bmp"), "w", encoding="ascii") as file:
            file.write("old")
        before = self.contents(self.home.pictures)
        path, _ = self.picture(60, 40, "open.bmp")
        # What the system keeps below /dev can be seen through a letter of its own only.
        self.home.write_settings("[Viewer]\nLastCopyToPath=D:\\\n")
        program = self.start(path, environment={"LD_PRELOAD": self.library, "FULL_FOLDER": target,
                                                "FULL_BYTES": str(int(size * files_that_fit)),
                                                "TAVRIX_DRIVES": f"C=/;D={target}"})
        program.main(path)
        title = f"{verb} Image(s)"
        program.menu_entry("File", verb, "Image(s)").act()
        dialog = self.dialog(program, title)
        self.screen.press("Alt+a")
        rows = dialog.find("list", "Select File(s):")
        wait_until(lambda: len(rows.children()) == 4, "the files")
        self.screen.press("Alt+m" if verb == "Move" else "Alt+o")
        box = program.message_box()
        self.assertTrue(" ".join(box.text.split()).startswith(f"{verb} 4 files"), box.text)
        box.press("Yes")
        box = program.message_box()
        self.assertIn("already exists", box.text)
        box.press("Yes")
        box = program.message_box()
        failed = drive_path(self.home.pictures).upper() + "\\" + ("b.bmp" if files_that_fit < 2 else "c.bmp")
        self.assertEqual(box.text.split("\n\n"),
                         [f"Aborting, unable to {verb.lower()} the file:", failed, "Disk full..."])
        box.press("OK")
        wait_until(lambda: title not in program.titles(), "the end")
        self.assertTrue(program.running())
        self.end_by_escape(program)
        return before, self.contents(self.home.pictures), self.contents(target)

    def test_a_full_disk_ends_a_copy_and_what_stood_there_stays(self):
        target = os.path.join(self.home.folder, "target")
        os.mkdir(target)
        before, source, there = self.carry("Copy", target, 1.5)
        self.assertEqual({name: source[name] for name in before}, before)
        self.assertEqual(there, {"a.bmp": before["a.bmp"], "b.bmp": b"old"})

    def test_a_full_disk_ends_a_move_to_another_file_system(self):
        for fit in (1.5, 2.5):
            with self.subTest(fit):
                self.home = self.new_home()
                target = self.elsewhere()
                before, source, there = self.carry("Move", target, fit)
                self.assertEqual(there.pop("a.bmp"), before["a.bmp"])
                self.assertNotIn("a.bmp", source)
                if fit < 2:
                    self.assertEqual(there, {"b.bmp": b"old"})
                    self.assertEqual(source["b.bmp"], before["b.bmp"])
                else:
                    self.assertEqual(there, {"b.bmp": before["b.bmp"]})
                    self.assertNotIn("b.bmp", source)
                self.assertEqual(source["c.bmp"], before["c.bmp"])


class KilledCopyTest(ProgramTest):
    def test_an_edit_comes_back_after_a_kill_between_two_floppies(self):
        drive = os.path.join(self.home.pictures, "drive")
        os.mkdir(drive)
        with open(os.path.join(drive, "UNTITLED.BMP"), "wb") as file:
            file.write(b"of the floppy")
        environment = {"TAVRIX_DRIVES": f"A={drive},floppy,disk;C=/"}
        working = os.path.join(self.home.temporary, "Untitled.BMP")
        path, image = self.picture(320, 240)
        edit = turned(image, Image.Transpose.ROTATE_270, (240, 320))
        program = self.start(path, environment=environment)
        program.main(path)
        self.screen.press("Alt+Right")
        program.main(working)
        self.wait_file(working, edit, "turned")
        program.menu_entry("File", "Copy", "From Floppy To Floppy").act()
        dialog = self.dialog(program, "Copy Images From Floppy To Floppy")
        dialog.find("push button", "Select All").act()
        self.screen.press("Return")
        program.message_box().press("OK")
        program.message_box().press("Yes")
        box = program.message_box()
        self.assertEqual(box.text, "Insert the DESTINATION disk and then press the OK button to continue.")
        self.assertFalse(os.path.exists(working))
        with open(os.path.join(self.home.temporary, "UNTITLED.BMP"), "rb") as file:
            self.assertEqual(file.read(), b"of the floppy")
        program.kill()

        program = self.start(environment=environment)
        program.main()
        self.wait_file(working, edit, "back")
        self.assertEqual([name for name in os.listdir(self.home.temporary) if "aside" in name], [])
        # Nobody was asked about it, so that it outlives that start, too.
        self.end_by_escape(program)
        self.wait_file(working, edit, "kept")


if __name__ == "__main__":
    unittest.main()
