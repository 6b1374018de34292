"""Images are copied, moved, renamed and deleted with the keyboard and the mouse."""

import os
import unittest

from driver import drive_path, wait_until
from support import ProgramTest

SOURCE, DESTINATION = 0, 1


class FilingTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.target = os.path.join(self.home.folder, "target")
        os.mkdir(self.target)

    def begin(self, *names, settings=""):
        """The program with the image open.bmp in a folder with these pictures."""
        for name in names:
            self.picture(30, 20, name)
        path, _ = self.picture(200, 100, "open.bmp")
        self.home.write_settings(f"[Viewer]\nLastCopyToPath={drive_path(self.target)}\\\n{settings}")
        program = self.start(path)
        program.main(path)
        return program

    def command(self, program, title, *entry):
        program.menu_entry("File", *entry).act()
        return self.dialog(program, title)

    def listed(self, folder):
        return sorted(os.listdir(folder))

    def wait_listed(self, folder, names):
        wait_until(lambda: self.listed(folder) == names, lambda: f"{names}; there are {self.listed(folder)}")

    def row(self, dialog, name):
        found = wait_until(lambda: next((row for row in dialog.find("list", "Select File(s):").children()
                                         if row.name == name), None), f"the row {name}")
        x, y, _, height = found.extents
        return x + 20, y + height // 2

    def folders(self, dialog, side):
        x, y, width, height = dialog.all("list", "Folder:")[side].extents
        return x + width // 2, y + height - 15

    def wait_end(self, program, title):
        wait_until(lambda: title not in program.titles(), f"the end of {title!r}")

    def test_copies_with_the_keyboard(self):
        program = self.begin("a.bmp", "b.bmp")
        self.command(program, "Copy Image(s)", "Copy", "Image(s)")
        self.screen.press("Alt+a", "Alt+o")
        box = program.message_box()
        self.assertEqual(box.text.split(), ("Copy 3 files to the following directory? "
                                            + drive_path(self.target).upper() + "\\").split())
        self.screen.press("Return")
        self.wait_listed(self.target, ["a.bmp", "b.bmp", "open.bmp"])
        self.wait_end(program, "Copy Image(s)")
        self.assertEqual(self.listed(self.home.pictures), ["a.bmp", "b.bmp", "open.bmp"])
        with open(os.path.join(self.target, "a.bmp"), "rb") as copy, \
                open(os.path.join(self.home.pictures, "a.bmp"), "rb") as original:
            self.assertEqual(copy.read(), original.read())
        self.end_by_escape(program)
        self.assertEqual(self.home.setting("LastCopyToPath"), drive_path(self.target).upper() + "\\")

    def test_moves_with_the_mouse(self):
        program = self.begin("a.bmp", "b.bmp", "c.bmp")
        for key, dragged, question, carried, left in (
                ("Shift", "b.bmp", "Move the file: b.bmp", ["b.bmp"], ["a.bmp", "c.bmp", "open.bmp"]),
                ("Ctrl", "c.bmp", "Move 2 files", ["b.bmp", "c.bmp"], ["a.bmp", "open.bmp"]),
                ("Alt", "a.bmp", "Move 2 files", ["a.bmp", "b.bmp", "c.bmp"], ["open.bmp"])):
            with self.subTest(key):
                dialog = self.command(program, "Move Image(s)", "Move", "Image(s)")
                self.screen.drag(self.row(dialog, dragged), self.folders(dialog, DESTINATION), held=[key])
                box = program.message_box()
                self.assertTrue(" ".join(box.text.split()).startswith(question), box.text)
                self.screen.press("Return")
                if key != "Shift":
                    # The image on show was selected when the window opened, or is one of all.
                    box = program.message_box()
                    self.assertTrue(box.text.rstrip().endswith("...image is currently open."), box.text)
                    box.press("OK")
                self.wait_listed(self.target, carried)
                self.wait_end(program, "Move Image(s)")
                self.assertEqual(self.listed(self.home.pictures), left)

    def test_a_drop_elsewhere_and_escape_do_nothing(self):
        program = self.begin("a.bmp")
        dialog = self.command(program, "Move Image(s)", "Move", "Image(s)")
        self.screen.drag(self.row(dialog, "a.bmp"), self.folders(dialog, SOURCE), held=["Ctrl"])
        x, y, width, height = dialog.find("push button", "Cancel").extents
        self.screen.drag(self.row(dialog, "a.bmp"), (x + width // 2, y + height // 2), held=["Shift"])
        self.assertIn("Move Image(s)", program.titles())
        self.screen.press("Escape")
        self.wait_end(program, "Move Image(s)")
        self.assertEqual(self.listed(self.target), [])
        self.assertEqual(self.listed(self.home.pictures), ["a.bmp", "open.bmp"])

    def test_replaces_what_the_user_agrees_to(self):
        program = self.begin("a.bmp", "b.bmp")
        for name in ("a.bmp", "b.bmp"):
            with open(os.path.join(self.target, name), "w", encoding="ascii") as file:
                file.write("old")
        dialog = self.command(program, "Move Image(s)", "Move", "Image(s)")
        self.screen.click(*self.row(dialog, "a.bmp"))
        self.screen.press("Shift+Down", "Alt+m")
        program.message_box().press("Yes")
        box = program.message_box()
        self.assertIn("a.bmp", box.text)
        box.press("No")
        box = program.message_box()
        self.assertIn("b.bmp", box.text)
        box.press("Yes")
        self.wait_listed(self.home.pictures, ["a.bmp", "open.bmp"])
        self.wait_end(program, "Move Image(s)")
        self.assertEqual(os.path.getsize(os.path.join(self.target, "a.bmp")), 3)
        self.assertGreater(os.path.getsize(os.path.join(self.target, "b.bmp")), 100)

    def test_renames_the_image_on_show(self):
        program = self.begin()
        program.menu_entry("File", "Rename", "Current Image").act()
        box = self.dialog(program, "Tavrix - [Rename Current Image]")
        self.assertIsNotNone(box)
        self.screen.type("other")
        self.screen.press("Return")
        path = os.path.join(self.home.pictures, "other.bmp")
        program.main(path)
        self.assertEqual(self.listed(self.home.pictures), ["other.bmp"])

    def test_deletes_to_the_trash_and_then_the_image_on_show(self):
        program = self.begin("a.bmp", "b.bmp")
        dialog = self.command(program, "Delete Image(s)", "Delete", "Image(s)")
        files = wait_until(lambda: dialog.all("list", "Files:"), "the files")[0]
        row = wait_until(lambda: next((r for r in files.children() if r.name == "a.bmp"), None), "the row of a.bmp")
        x, y, _, height = row.extents
        self.screen.click(x + 20, y + height // 2)
        self.screen.press("Delete")
        program.message_box().press("Yes")
        self.wait_listed(self.home.pictures, ["b.bmp", "open.bmp"])
        self.screen.press("Escape")
        self.wait_end(program, "Delete Image(s)")
        program.menu_entry("File", "Delete", "Current Image").act()
        program.message_box().press("Yes")
        program.window("Tavrix")
        self.assertEqual(self.listed(self.home.pictures), ["b.bmp"])
        trash = os.path.join(self.home.environment["XDG_DATA_HOME"], "Trash", "files")
        self.assertEqual(self.listed(trash), ["a.bmp", "open.bmp"])


if __name__ == "__main__":
    unittest.main()
