"""Keeping pictures: copies, exports and imports with the real windows and real files."""

import os

from PIL import Image, ImageChops

from driver import drive_path, wait_until
from support import ProgramTest


class SavingTest(ProgramTest):
    def choose(self, program, *names):
        """Opens a dialog from the menu: its accessible object, once its window has the keyboard."""
        program.menu_entry(*names[:-1]).act()
        window = program.window(names[-1])
        wait_until(lambda: self.screen.active() == window.id or None, f"{names[-1]!r} becoming active")
        return program.wait(lambda: next((t for t in program.root().children() if t.name == names[-1]), None),
                            names[-1])

    def type_name(self, dialog, name):
        """Types a name over the proposed one, which is selected."""
        field = dialog.find("text")
        self.screen.type(name)
        wait_until(lambda: field.text == name, lambda: f"{name!r} in the field, which holds {field.text!r}")
        return field

    def answer(self, program, text, button):
        box = program.message_box()
        self.assertEqual(box.text, text)
        box.press(button)

    def made(self, name):
        return os.path.join(self.home.pictures, name)

    def test_a_copy_is_the_file_byte_for_byte(self):
        program, window, _ = self.open(160, 120, "first.bmp")
        dialog = self.choose(program, "File", "Copy", "Current Image", "Save Copy")
        self.type_name(dialog, "second.bmp")
        self.screen.press("Return")
        self.answer(program, f"About to save the image as:\n\n{drive_path(self.made('second.bmp'))}\n\n"
                             "Is this filename OK?", "Yes")
        program.main(self.made("second.bmp"))
        with open(self.made("first.bmp"), "rb") as first, open(self.made("second.bmp"), "rb") as second:
            self.assertEqual(first.read(), second.read())
        self.end_by_escape(program)
        self.assertEqual(self.home.setting("Recent1"), drive_path(self.made("second.bmp")))

    def test_what_is_typed_after_a_refusal_goes_to_the_colon(self):
        program, _, _ = self.open(160, 120, "first.bmp")
        dialog = self.choose(program, "File", "Copy", "Current Image", "Save Copy")
        field = self.type_name(dialog, "ab:c")
        self.screen.press("Return")
        self.answer(program, "A filename may not contain a colon (:), unable to export image...", "OK")
        self.screen.type("X")
        wait_until(lambda: field.text == "abX:c", lambda: f"abX:c in the field, which holds {field.text!r}")
        self.screen.press("Escape")
        program.main(self.made("first.bmp"))

    def test_a_jpeg_has_the_pixels_of_the_picture(self):
        picture = Image.new("RGB", (90, 70), (200, 60, 30))
        picture.paste((20, 60, 220), (0, 0, 48, 70))
        picture.save(self.made("first.gif"))
        program = self.start(self.made("first.gif"))
        program.main(self.made("first.gif"))
        dialog = self.choose(program, "File", "Export", "Export JPG", "Export JPG")
        self.assertEqual(dialog.find("text").text, "first.JPG")
        dialog.find("push button", "Export").act()
        self.answer(program, f"About to export the image as:\n\n{drive_path(self.made('first.JPG'))}\n\n"
                             "Is this filename OK?", "Yes")
        program.main(self.made("first.JPG"))
        with Image.open(self.made("first.JPG")) as exported:
            self.assertEqual((exported.format, exported.size), ("JPEG", picture.size))
            difference = ImageChops.difference(exported.convert("RGB"), picture)
        self.assertLess(max(high for _, high in difference.getextrema()), 60)
        self.assertNotIn("~temp.BMP", os.listdir(self.home.temporary))

    def test_an_imported_picture_is_exported_as_a_bitmap_only_by_a_copy(self):
        _, image = self.picture(140, 100, "first.tga")
        program = self.start(folder=self.home.pictures)
        program.main()
        dialog = self.choose(program, "File", "Import", "Import TGA", "Import TGA Image File")
        self.assertEqual([row.name for row in dialog.find("list", "Files:").children()], ["first.tga"])
        self.screen.press("Down")
        self.screen.press("Return")
        working = os.path.join(self.home.temporary, "Untitled.BMP")
        wait_until(lambda: os.path.exists(working), "the working file")
        window = program.main(working)
        self.view(window, image)
        with Image.open(working) as written:
            self.assertIsNone(ImageChops.difference(written.convert("RGB"), image).getbbox())
        program.menu_entry("File", "Export", "Export BMP").act()
        self.answer(program, "The current image is already in the bitmap (.BMP) format, unable to export file.\n\n"
                             'Use the "Copy / Current Image" option to save this file...', "OK")
        dialog = self.choose(program, "File", "Copy", "Current Image", "Save Copy")
        self.type_name(dialog, "kept.bmp")
        self.screen.press("Return")
        program.message_box().press("Yes")
        program.main(self.made("kept.bmp"))
        with Image.open(self.made("kept.bmp")) as kept:
            self.assertIsNone(ImageChops.difference(kept.convert("RGB"), image).getbbox())
        self.end_by_escape(program)
