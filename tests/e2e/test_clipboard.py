"""Selecting with the mouse, cropping, and the clipboard between the program and others. Pictures are compared pixel by
pixel with what an independent imaging library makes of the same ones."""

import io
import os
import unittest

from PIL import Image, ImageChops
from driver import wait_until
from driver.clipboard import Keeper, Offer, Reader
from pictures import coded, stretched
from support import ProgramTest


def encoded(image, kind, **options):
    file = io.BytesIO()
    image.save(file, kind, **options)
    return file.getvalue()


def other(width, height):
    """A picture whose pixels are in no coded one."""
    return ImageChops.invert(coded(width, height))


def on_the_middle(image, picture):
    """Half a pixel goes to the even neighbour."""
    result = image.copy()
    result.paste(picture, tuple(round((whole - part) / 2) for whole, part in zip(image.size, picture.size)))
    return result


class ClipboardTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.working = os.path.join(self.home.temporary, "Untitled.BMP")

    def program_with_picture(self, width=320, height=240):
        program, window, view = self.open(width, height, settings="ClearClipboard=False\nAutosizeWindow=False\n")
        return program, coded(width, height), view

    def reader(self):
        reader = Reader(self.screen)
        self.addCleanup(reader.close)
        return reader

    def offer(self, **kinds):
        """Another program that has something to paste; the names are those of the second halves of the kinds."""
        offer = Offer(self.screen, {f"image/{name}": data for name, data in kinds.items()})
        self.addCleanup(offer.close)
        return offer

    def select(self, view, x1, y1, x2, y2):
        """Draws a rectangle on the picture, in its pixels."""
        left, top = view.screen_x - view.x, view.screen_y - view.y
        self.screen.drag((left + x1, top + y1), (left + x2, top + y2), held=["Shift"])

    def wait_outline(self, view, image, x1, y1, x2, y2):
        """The picture on the screen, with each pixel of the outline inverted and no other."""
        expected = image.copy()
        inside = image.crop((x1 + 1, y1 + 1, x2, y2))
        expected.paste(ImageChops.invert(image.crop((x1, y1, x2 + 1, y2 + 1))), (x1, y1))
        expected.paste(inside, (x1 + 1, y1 + 1))
        wait_until(lambda: self.screen.grab(view.screen_x, view.screen_y, view.width, view.height).tobytes()
                   == expected.tobytes(), "the outline")

    def copy(self, program, reader):
        program.menu_entry("Edit", "Copy").act()
        wait_until(lambda: "image/png" in reader.targets(), "the picture on the clipboard")

    def paste(self, program):
        program.menu_entry("Edit", "Paste").act()

    def assert_clipboard(self, reader, image):
        for kind in ("image/png", "image/bmp"):
            with Image.open(io.BytesIO(reader.fetch(kind))) as seen:
                self.assertEqual(seen.size, image.size, kind)
                self.assertEqual(seen.convert("RGB").tobytes(), image.tobytes(), kind)

    def test_what_is_selected_is_cropped(self):
        for corners in ((40, 30, 200, 150), (200, 30, 40, 150), (40, 150, 200, 30), (200, 150, 40, 30)):
            with self.subTest(corners):
                program, image, view = self.program_with_picture()
                self.select(view, *corners)
                self.wait_outline(view, image, 40, 30, 200, 150)
                self.screen.press("0")
                self.wait_file(self.working, image.crop((41, 31, 199, 149)), "that was selected")
                program.main(self.working)
                program.close()
                os.remove(self.working)

    def test_a_drag_beyond_the_edge_stops_there(self):
        program, image, view = self.program_with_picture()
        self.select(view, 100, 90, -20, 700)
        self.screen.press("0")
        self.wait_file(self.working, image.crop((1, 91, 99, 239)), "up to the edges")
        window = program.main(self.working)
        self.view(window, image, x=1, y=91, width=98, height=148)

    def test_others_paste_what_is_copied(self):
        program, image, view = self.program_with_picture(600, 400)
        reader = self.reader()
        self.copy(program, reader)
        self.assert_clipboard(reader, image)

        self.select(view, 40, 30, 200, 150)
        program.menu_entry("Edit", "Copy").act()
        part = stretched(image.crop((41, 31, 198, 148)), (158, 118))

        def copied():
            data = reader.fetch("image/png")  # none between the clearing and the setting
            return data and Image.open(io.BytesIO(data)).size == part.size
        wait_until(copied, "the new copy")
        self.assert_clipboard(reader, part)
        self.wait_outline(view, image, 40, 30, 200, 150)

        # Our own paste of it, onto the same image.
        self.screen.click(view.screen_x + 300, view.screen_y + 300)
        self.view(program.main(os.path.join(self.home.pictures, "picture.bmp")), image, width=600)
        self.paste(program)
        self.wait_file(self.working, on_the_middle(image, part), "with its own part")

    def test_pictures_of_others_are_pasted(self):
        small, large = other(101, 61), other(500, 100)
        see_through = small.convert("RGBA")
        see_through.putalpha(Image.linear_gradient("L").resize(small.size))
        over_white = Image.new("RGBA", small.size, "white")
        over_white.alpha_composite(see_through)
        for name, kinds, pasted in (
                ("png", {"png": encoded(small, "PNG")}, small),
                ("bmp", {"bmp": encoded(small, "BMP")}, small),
                ("another name for bmp", {"x-bmp": encoded(small, "BMP")}, small),
                ("ppm, which only the toolkit knows", {"ppm": encoded(small, "PPM")}, small),
                ("png is better than bmp", {"bmp": encoded(large, "BMP"), "png": encoded(small, "PNG")}, small),
                ("a broken one is passed over", {"bmp": encoded(small, "BMP"), "png": b"none"}, small),
                ("large, in pieces", {"bmp": encoded(large, "BMP")}, large),
                ("transparent", {"png": encoded(see_through, "PNG")}, over_white.convert("RGB"))):
            with self.subTest(name):
                program, image, _ = self.program_with_picture()
                offer = self.offer(**kinds)
                self.paste(program)
                expected = pasted if pasted is large else on_the_middle(image, pasted)
                if name == "transparent":
                    self.wait_file_close_to(self.working, expected)
                else:
                    self.wait_file(self.working, expected, "with the other")
                program.main(self.working)
                self.assertTrue(offer.asked)
                program.close()
                os.remove(self.working)

    def wait_file_close_to(self, path, image):
        """Mixing colours rounds differently from one library to the next."""
        def look():
            try:
                with Image.open(path) as seen:
                    difference = ImageChops.difference(seen.convert("RGB"), image)
                    return max(high for _, high in difference.getextrema()) <= 1
            except (OSError, SyntaxError, ValueError):
                return False
        wait_until(look, f"{path} holding the picture")

    def test_paste_into_a_selection(self):
        program, image, view = self.program_with_picture()
        self.offer(png=encoded(other(300, 200), "PNG"))
        for button, part in (("Yes", other(300, 200).crop((0, 0, 299, 199))), ("No", other(300, 200).crop((0, 0, 98, 58)))):
            with self.subTest(button):
                self.select(view, 150, 100, 50, 40)
                self.paste(program)
                box = program.message_box()
                self.assertEqual(box.text, "Stretch clipboard data to fit the selected area?")
                self.assertEqual(box.buttons, ["Yes", "No", "Cancel"])
                box.press(button)
                image.paste(stretched(part, (99, 59)), (51, 41))
                self.wait_file(self.working, image, "with the other in the selection")
                program.main(self.working)

    def test_files_and_texts_are_nothing_to_paste(self):
        program, image, view = self.program_with_picture()
        path, _ = self.picture(50, 40, "copied.bmp")
        offer = Offer(self.screen, {"text/uri-list": f"file://{path}\r\n".encode(), "text/plain": path.encode()})
        self.addCleanup(offer.close)
        self.paste(program)
        box = program.message_box()
        self.assertIn("There is nothing to paste.", box.text)
        self.assertIn("An image has not been copied to the clipboard yet...", box.text)
        box.press("OK")
        self.assertFalse(os.path.exists(self.working))

    def test_a_program_that_does_not_answer_is_told_of(self):
        program, _, _ = self.program_with_picture()
        self.offer(png=None, bmp=None)
        self.paste(program)
        box = program.message_box()
        self.assertIn("Unable to get image from the clipboard.", box.text)
        self.assertIn("Can't open Clipboard...", box.text)
        box.press("OK")
        program.main()

    def test_a_slow_keeper_has_it_after_the_end(self):
        keeper = Keeper(self.screen, pause=1.5)
        self.addCleanup(keeper.close)
        program, image, view = self.program_with_picture(1200, 800)
        reader = self.reader()
        self.copy(program, reader)
        self.end_by_escape(program)
        self.assertEqual(keeper.saved, [["image/bmp", "image/png"]])
        self.assert_clipboard(reader, image)

    def test_the_question_at_the_end_decides(self):
        for answer in ("Yes", "No"):
            with self.subTest(answer):
                home = self.new_home()
                path, image = self.picture(320, 240)
                keeper = Keeper(self.screen)
                self.addCleanup(keeper.close)
                program = self.start(path, home=home)
                program.main(path)
                reader = self.reader()
                self.copy(program, reader)
                self.screen.press("Escape")
                box = program.message_box()
                self.assertIn("There is an image on the clipboard.", box.text)
                self.assertIn("Do you want this data to be available to other applications?", box.text)
                box.press(answer)
                self.assertEqual(program.wait_end(), 0)
                if answer == "Yes":
                    self.assert_clipboard(reader, image)
                else:
                    self.assertEqual(reader.targets(), [])
                    self.assertEqual(keeper.saved, [])


if __name__ == "__main__":
    unittest.main()
