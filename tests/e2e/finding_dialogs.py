"""What tests do to the dialogs that find files."""

import os

from driver import wait_until
from driver.accessibility import Gone

FIND = "Find Image(s)"
DUPLICATES = "Search For Duplicate Files"
BEGIN = ("You are about to search the selected drive(s) for duplicate files... This could take several minutes to "
         "complete.")
RECYCLE = "Are you sure you want to send the following file to the Recycle Bin? "
IS_OPEN = "Unable to delete this file, image is currently open..."


class FindingDialogs:
    """For a test of programs that finds on two drives: D:, the user's pictures, and E:, another folder."""

    def setUp(self):
        super().setUp()
        self.other = os.path.join(self.home.folder, "other")
        os.mkdir(self.other)
        self.drives = {"TAVRIX_DRIVES": f"C=/;D={self.home.pictures},fixed;E={self.other},fixed"}

    def open_dialog(self, program, entry):
        program.menu_entry("File", "Find", entry).act()
        return self.dialog(program, entry)

    def start_on(self, *arguments, folder=None):
        program = self.start(*arguments, environment=self.drives, folder=folder or self.home.pictures)
        if not arguments:
            program.main()
        return program

    def rows(self, dialog, name="File(s) Found:"):
        """None while they change."""
        try:
            return [row.name for row in dialog.find("list", name).children()]
        except Gone:
            return None

    def wait_rows(self, dialog, wanted):
        wait_until(lambda: self.rows(dialog) == wanted, lambda: f"{wanted}; there are {self.rows(dialog)}; {self.status(dialog)}")

    def status(self, dialog):
        return dialog.find("graphic", "Status").description

    def wait_status(self, dialog, wanted):
        wait_until(lambda: self.status(dialog) == wanted, lambda: f"{wanted!r}, not {self.status(dialog)!r}")

    def press(self, dialog, name):
        dialog.find("push button", name).act()

    def click_row(self, dialog, row, times=1):
        x, y, width, height = dialog.find("list", "File(s) Found:").children()[row].extents
        self.screen.click(x + width // 2, y + height // 2, times=times)

    def answer(self, program, text, button):
        """Answers the box whose text this is, whatever its blanks."""
        box = program.message_box()
        self.assertEqual(box.text.split(), text.split())
        box.press(button)

    def in_trash(self):
        return sorted(os.listdir(os.path.join(self.home.environment["XDG_DATA_HOME"], "Trash", "files")))

    def wait_titles(self, program, *wanted):
        wait_until(lambda: program.titles() == list(wanted), lambda: f"{wanted}, not {program.titles()}")

    def select_drives(self, dialog, *letters):
        self.press(dialog, "Select NONE")
        drives = dialog.find("list", "Select Drive(s):")
        wait_until(lambda: not any(row.has("selected") for row in drives.children()), "no drive selected")
        for row in drives.children():
            if row.name[0] in letters:
                x, y, width, height = row.extents
                self.screen.click(x + width // 4, y + height // 2)
