"""Floppy disks: copies from one to another through one drive, with real files behind the drive's letter."""

import os

from driver import wait_until
from support import ProgramTest


class FloppyTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.disks = {}
        for name in ("source", "destination"):
            self.disks[name] = os.path.join(self.home.pictures, "disks", name)
            os.makedirs(self.disks[name])
        self.drive = os.path.join(self.home.pictures, "disks", "drive")
        self.insert("source")

    def insert(self, name):
        """Changes the disk in the drive at once."""
        new = self.drive + ".new"
        os.symlink(self.disks[name], new)
        os.replace(new, self.drive)

    def eject(self):
        os.remove(self.drive)

    def put(self, disk, name, content):
        with open(os.path.join(self.disks[disk], name), "wb") as file:
            file.write(content)

    def content(self, disk, name):
        with open(os.path.join(self.disks[disk], name), "rb") as file:
            return file.read()

    def start_with_drive(self):
        program = self.start(environment={"TAVRIX_DRIVES": f"A={self.drive},floppy,disk;C=/"},
                             folder=self.home.pictures)
        program.main()
        return program

    def answer(self, program, text, button):
        box = program.message_box()
        self.assertEqual(box.text, text)
        box.press(button)

    def test_files_go_from_one_disk_to_the_other(self):
        self.put("source", "beach.bmp", b"the beach")
        self.put("source", "harbour.gif", b"the harbour")
        self.put("destination", "harbour.gif", b"another harbour")
        program = self.start_with_drive()
        program.menu_entry("File", "Copy", "From Floppy To Floppy").act()
        dialog = self.dialog(program, "Copy Images From Floppy To Floppy")
        dialog.find("push button", "Select All").act()
        self.screen.press("Return")
        self.answer(program, "Make sure the SOURCE disk is inserted and then press the OK button to continue.", "OK")
        self.answer(program, "Copy 2 files to another floppy disk?", "Yes")
        box = program.message_box()
        self.assertEqual(box.text, "Insert the DESTINATION disk and then press the OK button to continue.")
        self.eject()
        box.press("OK")
        no_disk = "A disk could not be found in Floppy Drive A:\\\n\nInsert disk and then try again..."
        box = program.message_box()
        self.assertEqual(box.text, no_disk)
        self.insert("destination")
        box.press("OK")
        self.answer(program, "The following file already exists on the destination floppy:\n\nharbour.gif\n\n"
                             "Replace this file with the one from the source disk?", "No")
        program.main()
        wait_until(lambda: "Copy Images From Floppy To Floppy" not in program.titles(), "the end of the copy")
        self.assertEqual(self.content("destination", "beach.bmp"), b"the beach")
        self.assertEqual(self.content("destination", "harbour.gif"), b"another harbour")
        self.assertEqual(sorted(os.listdir(self.disks["source"])), ["beach.bmp", "harbour.gif"])
        self.assertEqual([name for name in os.listdir(self.home.temporary) if name[0] not in ".~"], [])
        self.end_by_escape(program)

    def test_a_disk_that_is_missing_is_asked_for(self):
        self.put("source", "beach.bmp", b"the beach")
        self.eject()
        program = self.start_with_drive()
        program.menu_entry("File", "Delete", "Images On Floppy").act()
        text = "Insert a disk into floppy drive A:\\ and then press the OK button to continue."
        box = program.message_box()
        self.assertEqual(box.text, text)
        self.insert("source")
        box.press("OK")
        dialog = self.dialog(program, "Delete Images On Floppy")
        dialog.find("push button", "Select All").act()
        dialog.find("push button", "Delete").act()
        self.answer(program, "You are about to delete the file:\n\nA:\\beach.bmp\n\nAre you sure?", "Yes")
        wait_until(lambda: not os.path.exists(os.path.join(self.disks["source"], "beach.bmp")), "the file deleted")
        self.screen.press("Escape")
        program.main()
        self.end_by_escape(program)
