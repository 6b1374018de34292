"""Rotating by any angle, resizing to any size, a new image and its colour, as a user does it with the keyboard. Each
result is compared with a transcription of what is defined, which knows nothing of the program."""

import math
import os
import re
import resource
import struct
import unittest

from PIL import Image
from pictures import coded
from support import ProgramTest

PI = 3.14159265359
TWIPS = 15
BLUE = (40, 90, 200)


def single(number):
    return struct.unpack("f", struct.pack("f", number))[0]


def turned(image, degrees, clockwise, preserve, background):
    """The polar rotation by 1 to 180 degrees into a picture of its own size or a growing one."""
    source_w, source_h = image.width * TWIPS, image.height * TWIPS
    radians = PI / 180 * degrees
    box_w, box_h = source_w, source_h
    if 90 < degrees < 180:
        box_w, box_h = source_h, source_w
        degrees -= 90
    if clockwise:
        radians = -radians
    if preserve or degrees == 180:
        width, height = box_w, box_h
    elif degrees == 90:
        width, height = box_h, box_w
    else:
        if clockwise:
            degrees -= 360
        reduced = degrees * (PI / 180)
        width = box_h * math.sin(reduced) + box_w * math.cos(reduced) + 2 * TWIPS
        height = box_h * math.cos(reduced) + box_w * math.sin(reduced) + 2 * TWIPS

    result = Image.new("RGB", (round(single(width) / TWIPS), round(single(height) / TWIPS)), background)
    source, dest = image.load(), result.load()
    sx, sy, dx, dy = (round(single(side)) // 2 // TWIPS for side in (source_w, source_h, width, height))
    angle = single(radians)

    def copy(to_x, to_y, from_x, from_y):
        if 0 <= from_x < image.width and 0 <= from_y < image.height:
            if 0 <= to_x < result.width and 0 <= to_y < result.height:
                dest[to_x, to_y] = source[from_x, from_y]

    limit = max(dx, dy) - 1
    for o in range(limit + 1):
        for i in range(limit + 1):
            theta = single(PI / 2 if o == 0 else math.atan(i / o))
            radius = round(math.sqrt(o * o + i * i))
            x, y = round(radius * math.cos(theta + angle)), round(radius * math.sin(theta + angle))
            # All four are read before the first is written; here they come from another picture.
            copy(dx + o, dy + i, sx + x, sy + y)
            copy(dx - o, dy - i, sx - x, sy - y)
            copy(dx + i, dy - o, sx + y, sy - x)
            copy(dx - i, dy + o, sx - y, sy + x)
    return result


def resized(image, width, height):
    """Pixel i of n is pixel floor(i * m / n) of m."""
    result = Image.new("RGB", (width, height))
    source, dest = image.load(), result.load()
    for y in range(height):
        for x in range(width):
            dest[x, y] = source[x * image.width // width, y * image.height // height]
    return result


def plain(width, height, colour):
    return Image.new("RGB", (width, height), colour)


class EditingDialogsTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.working = os.path.join(self.home.temporary, "Untitled.BMP")

    def settings(self, *lines):
        red, green, blue = BLUE
        self.home.write_settings("\n".join(
            ["[Viewer]", "StartupDialog=0", f"BackColorR={red}", f"BackColorG={green}", f"BackColorB={blue}", *lines, ""]))

    def open_picture(self, width, height):
        path, image = self.picture(width, height)
        program = self.start(path)
        program.main(path)
        return program, image

    @staticmethod
    def edit_entry(program, name):
        """An entry of the Edit menu that can be chosen or not, or None."""
        try:
            return program.menu_entry("Edit", name)
        except AssertionError:
            return None

    def undo(self, program, name, image):
        entry = program.wait(lambda: self.edit_entry(program, name), name)
        program.wait(lambda: entry.has("enabled"), f"{name!r} on offer")
        entry.act()
        self.wait_file(self.working, image, "that was there before")
        program.wait(lambda: self.edit_entry(program, "Can't Undo"), "the end of the undo")

    def test_rotations_are_what_the_formulas_say(self):
        self.settings()
        program, image = self.open_picture(96, 50)
        self.addCleanup(program.close)
        preserved = False
        for degrees in (45, 90, 135, 180):
            for clockwise in (True, False):
                for preserve in (False, True):
                    what = f"turned by {degrees}, {'with' if preserve else 'without'} preserve, clockwise {clockwise}"
                    with self.subTest(what):
                        self.screen.press("Alt+Up")
                        self.dialog(program, "Rotate Image")
                        self.screen.type(str(degrees))  # in the place of the angle, which is selected
                        self.screen.press("Alt+k" if clockwise else "Alt+o")
                        if preserve != preserved:
                            self.screen.press("Alt+p")
                        preserved = preserve
                        self.screen.press("Return")
                        self.wait_file(self.working, turned(image, degrees, clockwise, preserve, BLUE), what)
                        self.undo(program, "Undo Rotate Arbitrary...", image)
        self.end_saved(program)
        self.assertEqual([self.home.setting(key) for key in ("RotateAngle", "RotateDirection", "RotatePreserve")],
                         ["180", "1", "True"])

    def end_saved(self, program):
        """Leaves the program, whose image has not been saved."""
        self.screen.press("Escape")
        program.message_box().press("Yes")
        self.assertEqual(program.wait_end(), 0)

    def test_options_and_boxes_obey_a_screen_reader(self):
        self.settings()
        program, image = self.open_picture(96, 50)
        self.screen.press("Alt+Up")
        dialog = self.dialog(program, "Rotate Image")
        options = {option.name: option for option in dialog.all("radio button")}
        self.assertEqual(set(options), {"Clockwise", "Counter-clockwise"})
        self.assertEqual([box.name for box in dialog.all("check box")], ["Preserve original image size."])
        self.assertTrue(options["Clockwise"].has("checked"))
        options["Counter-clockwise"].act("Toggle")
        program.wait(lambda: not options["Clockwise"].has("checked"), "the other direction")
        self.assertTrue(options["Counter-clockwise"].has("checked"))
        box = dialog.find("check box")
        box.act("Toggle")
        program.wait(lambda: box.has("checked"), "the tick")
        dialog.find("text").act("SetFocus")
        program.wait(lambda: dialog.find("text").has("focused"), "the focus on the angle")
        self.screen.press("Ctrl+a")
        self.screen.type("45")
        self.screen.press("Return")
        self.wait_file(self.working, turned(image, 45, False, True, BLUE), "turned as the reader said")
        program.main(self.working)
        self.end_saved(program)
        self.assertEqual([self.home.setting(key) for key in ("RotateAngle", "RotateDirection", "RotatePreserve")],
                         ["45", "1", "True"])

    def test_angles_that_cannot_be_are_refused(self):
        self.settings()
        program, _ = self.open_picture(96, 50)
        self.screen.press("Alt+Up")
        self.dialog(program, "Rotate Image")
        self.screen.type("40000")
        self.screen.press("Return")
        box = program.message_box()
        self.assertIn("The number that was entered is not valid.", box.text)
        box.press("OK")
        dialog = self.dialog(program, "Rotate Image")
        self.screen.type("x0y")  # letters are no digits, and what was there is replaced
        field = dialog.find("text")
        program.wait(lambda: field.text == "0", "the field holding 0 alone")
        self.screen.press("Return")
        box = program.message_box()
        self.assertEqual(box.text, "You must enter a number between 1 and 180, unable to rotate image...")
        box.press("OK")
        self.screen.press("Escape")
        program.wait(lambda: "Rotate Image" not in program.titles(), "the end of the dialog")
        self.assertFalse(os.path.exists(self.working))

    def test_colour_is_chosen_by_keyboard_and_used(self):
        self.settings()
        program, image = self.open_picture(96, 50)
        self.screen.press("Alt+Up")
        self.dialog(program, "Rotate Image")
        self.screen.press("Alt+b")
        colours = self.dialog(program, "Background Color")
        self.screen.press("Alt+r", "End", "Alt+g", "Home", "Right", "Right", "Alt+l", "Home", "Next")
        program.wait(lambda: colours.find("label", "255").has("showing"), "the number of the red bar")
        self.screen.press("Return")
        self.dialog(program, "Rotate Image")
        self.screen.type("30")
        self.screen.press("Return")
        self.wait_file(self.working, turned(image, 30, True, False, (255, 2, 16)), "over the chosen colour")
        program.main(self.working)
        self.end_saved(program)
        self.assertEqual([self.home.setting(f"BackColor{part}") for part in "RGB"], ["255", "2", "16"])

    def test_resize_with_and_without_the_lock(self):
        self.settings()
        program, image = self.open_picture(96, 50)
        self.screen.press("5")
        dialog = self.dialog(program, "Resize Image")
        for role, name in (("text", "Height:"), ("check box", "Preserve aspect ratio."), ("push button", "Resize"),
                           ("push button", "Cancel"), ("push button", "Help"), ("text", "Width:")):
            self.screen.press("Tab")
            program.wait(lambda: any(o.name.replace("&", "") == name and o.has("focused") for o in dialog.all(role)),
                         f"the focus on {name!r}")
        self.screen.type("61")  # in the place of the width, which is selected
        self.screen.press("Return")
        self.wait_file(self.working, resized(image, 61, 50), "61 pixels wide")
        program.main(self.working)
        self.undo(program, "Undo Resize Arbitrary...", image)
        self.screen.press("5")
        dialog = self.dialog(program, "Resize Image")
        self.screen.press("Alt+p")
        program.wait(lambda: dialog.find("check box").has("checked"), "the lock")
        self.screen.press("Alt+h")
        self.screen.type("100")
        program.wait(lambda: [field.text for field in dialog.all("text")] == ["192", "100"], "the width that follows")
        self.screen.press("Alt+w")
        self.screen.type("31")
        program.wait(lambda: [field.text for field in dialog.all("text")] == ["31", "16"], "the height that follows")
        self.screen.press("Return")
        self.wait_file(self.working, resized(image, 31, 16), "with the lock")
        program.main(self.working)
        self.end_saved(program)
        self.assertEqual(self.home.setting("ImageSizeAspect"), "True")

    def test_new_image(self):
        self.settings()
        program = self.start()
        program.main()
        program.menu_entry("File", "New Image").act()
        self.dialog(program, "New Image")
        self.screen.type("321")
        self.screen.press("Tab")
        self.screen.type("200")
        self.screen.press("Return")
        self.wait_file(self.working, plain(321, 200, BLUE), "of one colour")
        program.main(self.working)
        self.assertFalse(self.undo_entry(program).enabled)
        self.end_saved(program)
        self.assertEqual([self.home.setting(key) for key in ("NewImageX", "NewImageY")], ["321", "200"])

    def test_size_that_memory_cannot_hold(self):
        self.settings()
        program, image = self.open_picture(96, 50)
        with open(f"/proc/{program.process.pid}/status", encoding="ascii") as status:
            used = int(re.search(r"VmSize:\s+(\d+) kB", status.read())[1]) * 1024
        limit = used + (200 << 20)
        resource.prlimit(program.process.pid, resource.RLIMIT_AS, (limit, limit))
        program.menu_entry("File", "New Image").act()
        self.dialog(program, "New Image")
        self.screen.type("10000")
        self.screen.press("Tab")
        self.screen.type("10000")
        self.screen.press("Return")
        box = program.message_box()
        self.assertEqual(box.text.replace("\r", ""),
                         "Error, unable to create an image with the specified attributes.\n\nOut of memory...")
        box.press("OK")
        program.main()
        program.menu_entry("File", "New Image").act()
        self.dialog(program, "New Image")
        self.screen.type("64")
        self.screen.press("Tab")
        self.screen.type("48")
        self.screen.press("Return")
        self.wait_file(self.working, plain(64, 48, BLUE), "after the one that was too large")
        program.main(self.working)
        self.end_saved(program)


if __name__ == "__main__":
    unittest.main()
