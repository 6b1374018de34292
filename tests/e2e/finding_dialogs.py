"""What tests do to the dialogs that find files."""

import os

from driver import wait_until

FIND = "Find Image(s)"
FOUND = "File(s) Found:"
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

    def found(self, dialog):
        return self.rows(dialog, FOUND)

    def wait_found(self, dialog, wanted):
        self.wait_rows(dialog, FOUND, wanted)

    def click_row(self, dialog, row, times=1):
        x, y, width, height = dialog.find("list", FOUND).children()[row].extents
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
