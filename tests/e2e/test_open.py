"""Opening a picture with the dialog: lists, drives, preview, the Favorite Folder button, deleting, drops."""

import os
import unittest

from driver import drive_path, wait_until
from driver.drop import DropSource
from support import ProgramTest

OPEN_IMAGE = ("File", "Open Image")


class OpenTest(ProgramTest):
    def dialog(self, program, title="Open Image"):
        """A dialog once it is there and has the focus: its window and its accessible object."""
        window = program.window(title)
        wait_until(lambda: self.screen.active() == window.id or None, f"{title!r} becoming active")
        return window, program.wait(
            lambda: next((top for top in program.root().children() if top.name == title), None), title)

    def open_dialog(self, program):
        program.menu_entry(*OPEN_IMAGE).act()
        return self.dialog(program)

    def click_row(self, dialog, name, row, times=1):
        item = wait_until(lambda: next((r for r in dialog.find("list", name).children() if r.name == row), None),
                          lambda: f"{row!r} among {self.rows(dialog, name)}")
        x, y, width, height = item.extents
        self.screen.click(x + min(width // 2, 60), y + height // 2, times=times)

    def click(self, accessible, button=1):
        x, y, width, height = accessible.extents
        self.screen.click(x + width // 2, y + height // 2, button=button)

    def preview_holds(self, dialog, image):
        """Whether the preview shows a picture whose corners have the colours of this one."""
        x, y, width, height = dialog.find("graphic", "Preview").extents
        shown = self.screen.grab(x, y, width, height).convert("RGB")
        left, top = (width - image.width) // 2, (height - image.height) // 2
        return all(shown.getpixel((left + i, top + j)) == image.getpixel((i, j))
                   for i, j in ((0, 0), (image.width - 1, 0), (0, image.height - 1),
                                (image.width // 2, image.height // 2)))

    def test_through_another_drive_with_a_preview(self):
        _, image = self.picture(120, 90, "first.bmp")
        inner = os.path.join(self.home.pictures, "Inner")
        os.mkdir(inner)
        os.rename(os.path.join(self.home.pictures, "first.bmp"), os.path.join(inner, "first.bmp"))
        self.picture(60, 40, "outer.bmp")
        program = self.start(environment={"TAVRIX_DRIVES": f"C=/;D={self.home.pictures},fixed"})
        program.main()
        window, dialog = self.open_dialog(program)
        drives = dialog.find("combo box")
        self.click(drives)
        self.screen.press("End", "Return")
        self.wait_rows(dialog, "Folder:", ["D:\\", "Inner"])
        self.wait_rows(dialog, "Files:", ["outer.bmp"])
        self.click_row(dialog, "Folder:", "Inner", times=2)
        self.wait_rows(dialog, "Files:", ["first.bmp"])
        self.click_row(dialog, "Files:", "first.bmp")
        dialog.find("push button", "Preview").act()
        wait_until(lambda: self.preview_holds(dialog, image), "the preview")
        self.screen.press("Return")
        window = program.window("Tavrix - [D:\\Inner\\first.bmp]")
        self.view(window, image)

    def test_preview_follows_the_keys_and_the_buttons(self):
        images = {name: self.picture(40 + 10 * i, 30, name)[1] for i, name in enumerate(("a.bmp", "b.bmp", "c.bmp"))}
        program, _, _ = self.open(300, 200, "d.bmp", settings="OpenShowPreview=True\nOpenPreviewTimer=50\n")
        _, dialog = self.open_dialog(program)
        self.wait_rows(dialog, "Files:", ["a.bmp", "b.bmp", "c.bmp", "d.bmp"])
        self.screen.press("Home")
        wait_until(lambda: self.preview_holds(dialog, images["a.bmp"]), "the preview of a.bmp")
        self.screen.press("Down")
        wait_until(lambda: self.preview_holds(dialog, images["b.bmp"]), "the preview of b.bmp")
        dialog.find("push button", "Next").act()
        wait_until(lambda: self.preview_holds(dialog, images["c.bmp"]), "the preview of c.bmp")
        for name in ("b.bmp", "a.bmp"):
            dialog.find("push button", "Previous").act()
            wait_until(lambda name=name: self.preview_holds(dialog, images[name]), f"the preview of {name} again")
        self.screen.press("Escape")
        wait_until(lambda: "Open Image" not in program.titles(), "the end of the dialog")
        self.assertTrue(program.running())

    def test_an_image_that_is_open_is_read_again_only_on_yes(self):
        program, main, _ = self.open(300, 200, "one.bmp")
        self.open_dialog(program)
        self.screen.press("Return")
        box = program.message_box()
        self.assertEqual(box.text.split(), "This image is already open. Read selected file again?".split())
        box.press("No")
        _, dialog = self.dialog(program)
        dialog.find("push button", "Cancel").act()
        wait_until(lambda: program.titles() == [main.title], "the main view alone")

    def test_delete_key_sends_to_the_trash(self):
        self.picture(50, 50, "gone.bmp")
        program, main, _ = self.open(300, 200, "here.bmp")
        _, dialog = self.open_dialog(program)
        self.click_row(dialog, "Files:", "gone.bmp")
        self.screen.press("Delete")
        box = program.message_box()
        self.assertIn("gone.bmp", box.text)
        box.press("Yes")
        self.wait_rows(dialog, "Files:", ["here.bmp"])
        trash = os.path.join(self.home.environment["XDG_DATA_HOME"], "Trash", "files")
        self.assertEqual(os.listdir(trash), ["gone.bmp"])
        self.screen.press("Delete")
        box = program.message_box()
        self.assertEqual(box.text, "Unable to delete file by pressing the delete key, nothing is selected in the "
                                   "file list...")
        box.press("OK")

    def test_favorite_folder_button_with_both_buttons(self):
        favorite, quick = os.path.join(self.home.folder, "favorite"), os.path.join(self.home.folder, "quick")
        for folder, name in ((favorite, "f.bmp"), (quick, "q.bmp")):
            os.mkdir(folder)
            path, _ = self.picture(50, 50, name)
            os.rename(path, os.path.join(folder, name))
        self.home.write_settings(
            "[Viewer]\n" f"FavoriteFolder={drive_path(favorite)}\\\n" "QuickFolder2=My quick one & more\n"
            f"QuickFolderPath2={drive_path(quick)}\\\n")
        program = self.start()
        program.main()
        _, dialog = self.open_dialog(program)
        button = dialog.find("push button", "Favorite Folder")
        self.click(button)
        self.wait_rows(dialog, "Files:", ["f.bmp"])
        self.click(button, button=3)
        program.wait(program.popups, "the popup menu")
        self.screen.press("Down", "Down", "Return")
        self.wait_rows(dialog, "Files:", ["q.bmp"])

    def test_file_dropped_on_the_dialog_is_previewed(self):
        path, image = self.picture(70, 50, "dropped.bmp")
        program = self.start()
        program.main()
        window, dialog = self.open_dialog(program)
        self.assertTrue(DropSource(self.screen, [path]).drop_on(window))
        self.wait_rows(dialog, "Files:", ["dropped.bmp"])
        wait_until(lambda: self.preview_holds(dialog, image), "the preview")

    def test_new_favorite_folder_is_made_and_kept(self):
        self.home.write_settings(f"[Viewer]\nFavoriteFolder={drive_path(self.home.pictures)}\\\n")
        program = self.start()
        program.main()
        program.menu_entry("Favorites", "Folders", "Favorite Folder").act()
        _, dialog = self.dialog(program, "Favorite Folder")
        dialog.find("push button", "New Folder").act()
        program.window("New Folder")
        wait_until(lambda: self.screen.active() == program.window("New Folder").id or None, "the input box")
        self.screen.type("made here")
        self.screen.press("Return")
        made = os.path.join(self.home.pictures, "made here")
        wait_until(lambda: os.path.isdir(made), "the folder")
        wait_until(lambda: "made here" in (self.rows(dialog, "Folder:") or []), "the folder in the list")
        dialog.find("push button", "OK").act()
        wait_until(lambda: program.titles() == ["Tavrix"], "the main view alone")
        self.end_by_escape(program)
        self.assertEqual(self.home.setting("FavoriteFolder").rstrip("\\"), drive_path(made))


if __name__ == "__main__":
    unittest.main()
