"""Turning, flipping and resizing a photo, taking a step back, and keeping the result: each file is compared pixel by
pixel with what an independent imaging library makes of the same picture."""

import os
import unittest

from PIL import Image, ImageChops
from driver import wait_until
from pictures import coded, stretched
from support import ProgramTest

BACKGROUND = (255, 255, 255)


def turned(image, transposition, size):
    """A quarter or half turn as the program's point reflection has it: one pixel further right or down than the mirror
    of the pixel grid; the row or column at the far end of the longer sides stays in the background."""
    right, down = {Image.Transpose.ROTATE_270: (1, 0), Image.Transpose.ROTATE_90: (0, 1),
                   Image.Transpose.ROTATE_180: (1, 1)}[transposition]
    result = Image.new("RGB", size, BACKGROUND)
    result.paste(image.transpose(transposition), (right, down))
    longer = max(size)
    if size[0] == longer:
        result.paste(BACKGROUND, (0, 0, 1, size[1]))
    if size[1] == longer:
        result.paste(BACKGROUND, (0, 0, size[0], 1))
    return result


def largest_difference(a, b):
    return max(high for _, high in ImageChops.difference(a, b).getextrema())


class EditTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.working = os.path.join(self.home.temporary, "Untitled.BMP")

    def photo(self, width, height, name="photo.jpg"):
        """A photo on the disk: its path, its bytes and its pixels."""
        path = os.path.join(self.home.pictures, name)
        coded(width, height).save(path, quality=95)
        with open(path, "rb") as file:
            content = file.read()
        with Image.open(path) as image:
            return path, content, image.convert("RGB")

    def assert_unchanged(self, path, content):
        with open(path, "rb") as file:
            self.assertEqual(file.read(), content)

    def enter_name(self, name):
        """The field of the name has the focus and all of it is selected."""
        self.screen.type(name)
        self.screen.press("Return")

    def test_photo_is_edited_and_kept(self):
        path, content, image = self.photo(320, 240)
        program = self.start(path)
        program.main(path)

        self.screen.press("Alt+Right")
        edited = turned(image, Image.Transpose.ROTATE_270, (240, 320))
        self.wait_file(self.working, edited, "turned clockwise")
        program.main(self.working)
        self.assertEqual(self.undo_entry(program).name, "Undo Rotate 90° CW")

        program.menu_entry("Edit", "Flip", "Horizontally").act()
        edited = edited.transpose(Image.Transpose.FLIP_LEFT_RIGHT)
        self.wait_file(self.working, edited, "flipped")

        self.screen.press("2")
        larger = stretched(edited, (300, 400))
        self.wait_file(self.working, larger, "a quarter larger")
        program.wait(lambda: self.undo_entry(program).name == "Undo Resize 25% Larger", "the undo entry")
        program.menu_entry("Edit", "Undo Resize 25% Larger").act()
        self.wait_file(self.working, edited, "as before the resize")
        program.wait(lambda: not self.undo_entry(program).enabled, "the end of the undo")
        self.assertEqual(self.undo_entry(program).name, "Can't Undo")

        program.menu_entry("File", "Copy", "Current Image").act()
        dialog = self.dialog(program, "Save Copy")
        self.enter_name("kept.bmp")
        box = program.message_box()
        self.assertIn("About to save the image as:", box.text)
        box.press("Yes")
        # The lists stand in the current folder, which is that of the photo since the start.
        kept = os.path.join(self.home.pictures, "kept.bmp")
        self.wait_file(kept, edited, "that was kept")
        program.main(kept)

        program.menu_entry("File", "Export", "Export JPG").act()
        dialog = self.dialog(program, "Export JPG")
        quality = dialog.find("combo box", "80 (Default)")
        x, y, width, height = quality.extents
        self.screen.click(x + width // 2, y + height // 2)
        self.screen.press("End", "Return")
        dialog.find("push button", "Export").act()
        box = program.message_box()
        self.assertIn("kept.JPG", box.text)
        box.press("Yes")
        exported = os.path.join(self.home.pictures, "kept.JPG")
        program.main(exported)
        with Image.open(exported) as seen:
            self.assertEqual(seen.format, "JPEG")
            self.assertEqual(seen.layer, [(1, 1, 1, 0), (2, 1, 1, 1), (3, 1, 1, 1)])  # full colour at this quality
            self.assertEqual(seen.size, edited.size)
            self.assertLess(largest_difference(seen.convert("RGB"), edited), 12)

        self.end_by_escape(program)
        self.assert_unchanged(path, content)
        self.assertEqual(self.home.setting("QualityJPG"), "10")

    def test_tga_and_pcx_are_imported(self):
        for name, entry, title, options in (("x.tga", "Import TGA", "Import TGA Image File", {"compression": "tga_rle"}),
                                            ("y.pcx", "Import PCX", "Import PCX Image File", {})):
            with self.subTest(name):
                home = self.new_home()
                image = coded(211, 97)
                image.save(os.path.join(home.pictures, name), **options)
                program = self.start(home=home, folder=home.pictures)
                program.main()
                program.menu_entry("File", "Import", entry).act()
                self.dialog(program, title)
                self.screen.press("Return")
                box = program.message_box()
                self.assertEqual(box.text, "Select a file to import and then try again...")
                box.press("OK")
                dialog = self.dialog(program, title)
                row = wait_until(lambda: next((r for r in dialog.find("list", "Files:").children()
                                               if r.name == name), None), name)
                x, y, width, height = row.extents
                self.screen.click(x + width // 2, y + height // 2, times=2)
                working = os.path.join(home.temporary, "Untitled.BMP")
                self.wait_file(working, image, "that was imported")
                window = program.main(working)
                self.view(window, image)
                program.close()

    def test_each_turn_and_flip_against_an_independent_tool(self):
        path, content, image = self.photo(256, 128)
        turns = Image.Transpose
        for keys, expected in (
                ("Alt+Right", turned(image, turns.ROTATE_270, (128, 256))),
                ("Alt+Left", turned(image, turns.ROTATE_90, (128, 256))),
                ("Alt+Down", turned(image, turns.ROTATE_180, (256, 128))),
                ("1", stretched(image, (192, 96))),
                ("3", stretched(image, (128, 64))),
                ("4", stretched(image, (384, 192)))):
            with self.subTest(keys):
                program = self.start(path)
                program.main(path)
                self.screen.press(keys)
                self.wait_file(self.working, expected, keys)
                program.main(self.working)
                program.close()
                os.remove(self.working)
        self.assert_unchanged(path, content)


if __name__ == "__main__":
    unittest.main()
