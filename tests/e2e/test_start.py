"""Command lines, and what stands on the screen after them."""

import os
import shutil
import signal
import subprocess
import sys
import unittest

from PIL import Image, ImageChops

from driver import drive_path, wait_until
from driver.program import PROGRAM
from support import ProgramTest

NOT_INSTALLED = ("The path to this program was not found in the system registry, Tavrix features may not have worked "
                 "properly as a result.\n\nRegistry entries have been updated...")
HELP = ("Start the program normally (don't pass command line parameters) and press the F1 key to view help on this "
        "product...")


class StartTest(ProgramTest):

    def test_picture_stands_pixel_by_pixel(self):
        program, window, view = self.open(640, 480)
        self.assertEqual(window.title, f"Tavrix - [{drive_path(self.home.pictures)}\\picture.bmp]")
        self.assertEqual((view.x, view.y, view.width, view.height), (0, 0, 640, 480))
        self.assertEqual(program.titles(), [window.title])

    def test_large_picture_fills_the_view_from_its_top_left(self):
        _, window, view = self.open(2000, 1500)
        self.assertEqual((view.x, view.y), (0, 0))
        self.assertGreater(view.width, 1200)
        self.assertGreater(view.height, 900)
        self.assertEqual(view.screen_x, window.x)

    def test_jpeg(self):
        _, _, view = self.open(640, 480)
        gradient = Image.linear_gradient("L").resize((640, 480))
        image = Image.merge("RGB", (gradient, gradient.rotate(180), gradient.transpose(Image.Transpose.ROTATE_90)
                                    .resize((640, 480))))
        path = os.path.join(self.home.pictures, "photo.jpg")
        image.save(path, quality=95)
        program = self.start(path)
        program.main(path)
        shown = self.screen.grab(view.screen_x, view.screen_y, 640, 480)
        difference = ImageChops.difference(shown, Image.open(path).convert("RGB"))
        self.assertLessEqual(max(high for _, high in difference.getextrema()), 2)

    def test_path_as_a_shell_gives_it(self):
        path, image = self.picture(400, 330, "Käthe & ich (2).bmp")
        program = self.start("pictures/Käthe & ich (2).bmp")
        window = program.main(path)
        self.view(window, image, x=0, y=0, width=400, height=330)

    def test_the_desktop_hears_of_the_picture_at_the_end_at_the_latest(self):
        program, _, _ = self.open(400, 330, "heard of.bmp")
        self.end_by_escape(program)
        recent = os.path.join(self.home.environment["XDG_DATA_HOME"], "recently-used.xbel")
        with open(recent, encoding="utf-8") as file:
            self.assertIn("/pictures/heard%20of.bmp", file.read())

    def test_the_desktop_hears_of_the_picture_while_it_is_looked_at(self):
        program, _, _ = self.open(400, 330, "heard of.bmp")
        recent = os.path.join(self.home.environment["XDG_DATA_HOME"], "recently-used.xbel")

        def heard():
            if not os.path.exists(recent):
                return False
            with open(recent, encoding="utf-8") as file:
                return "/pictures/heard%20of.bmp" in file.read()
        program.wait(heard, "the desktop's list with the picture")
        self.assertTrue(program.running())

    def test_a_wrong_note_of_the_menu_bar_holds_for_one_start(self):
        heights, notes = [], []
        for _ in range(3):
            program, window, view = self.open(400, 330)
            heights.append(view.screen_y - window.y)
            if notes:
                wait_until(lambda: self.home.in_store("MenuBar") == notes[0], "the right note")
            notes.append(wait_until(lambda: self.home.in_store("MenuBar"), "the note"))
            self.end_by_escape(program)
            if len(notes) == 1:
                height, _, looks = notes[0].partition(";")
                self.home.set_in_store("MenuBar", f"{int(height) + 9};{looks}")
        self.assertEqual(heights, [heights[0], heights[0] + 9, heights[0]])

    def test_the_menus_come_after_the_picture_and_change_nothing(self):
        places = []
        for _ in range(2):  # the second start has a note of how high the menu bar is
            program, window, view = self.open(400, 330)
            program.wait(lambda: "File" in [entry.name for entry in program.root().find("menu bar").children()],
                         "the menus")
            places.append((window.x, window.y, window.width, window.height, view.screen_x, view.screen_y))
            wait_until(lambda: self.home.in_store("MenuBar"), "the note")
            self.end_by_escape(program)
        self.assertEqual(places[0], places[1])

    def test_several_arguments_are_one_path(self):
        path, _ = self.picture(400, 330, "two words.bmp")
        program = self.start(*path.split(" "))
        program.main(path)

    def test_drive_path_in_any_case(self):
        path, image = self.picture(400, 330)
        given = drive_path(path).replace("picture.bmp", "PICTURE.Bmp")
        program = self.start(given)
        window = program.window(f"Tavrix - [{given}]")
        self.view(window, image, x=0, y=0)

    def test_small_letter_of_the_drive(self):
        path, image = self.picture(400, 330)
        program = self.start("c" + drive_path(path)[1:])
        window = program.wait(lambda: next((w for w in program.windows() if w.title.lower()
                                            == f"tavrix - [{drive_path(path).lower()}]"), None), "the main view")
        self.view(window, image, x=0, y=0)

    def test_nothing_named(self):
        program = self.start()
        program.main()
        self.assertEqual(program.titles(), ["Tavrix"])
        self.assertEqual(self.screen.active(), program.main().id)

    def test_unusable_pictures_leave_the_empty_view_without_a_word(self):
        path, _ = self.picture(640, 480)
        with open(path, "rb") as file:
            whole = file.read()
        for name, data in (("empty.bmp", b""), ("noise.jpg", os.urandom(5000)), ("header.bmp", whole[:30]),
                           ("text.gif", b"no picture at all"), ("missing.jpg", None)):
            with self.subTest(name):
                broken = os.path.join(self.home.pictures, name)
                if data is not None:
                    with open(broken, "wb") as file:
                        file.write(data)
                program = self.start(broken)
                program.main()
                self.assertEqual(program.titles(), ["Tavrix"])
                self.assertNotIn("Edit", [entry.name for entry in program.root().find("menu bar").children()
                                          if entry.has("visible")])
                self.end_by_escape(program)

    def test_invalid_command(self):
        for command in ("bogus", "photo.jpeg", '"C:\\x.jpg"', "P"):
            with self.subTest(command):
                program = self.start(command)
                box = program.message_box()
                self.assertEqual((box.title, box.text, box.buttons), (
                    "Tavrix", f"An invalid command ({command}) was passed at the command prompt...", ["OK"]))
                box.press("OK")
                program.main()
                self.end_by_escape(program)

    def test_help_is_told_and_the_program_ends(self):
        before = self.home.read_settings()
        for command in ("HELP", "help", "/h", "?"):
            with self.subTest(command):
                program = self.start(command)
                box = program.message_box()
                self.assertEqual((box.title, box.text, box.buttons), ("Tavrix", HELP, ["OK"]))
                box.press("OK")
                self.assertEqual(program.wait_end(), 0)
        self.assertEqual(self.home.read_settings(), before)

    def test_saver_without_a_show_ends_silently(self):
        for command in ("SCRNSAVE", "SCRNSAVE /C", "SCRNSAVE picture.bmp"):
            with self.subTest(command):
                program = self.start(*command.split(" "))
                self.assertEqual(program.wait_end(), 0)
                self.assertEqual(program.output(), "")

    def test_first_start_without_an_installation(self):
        home = self.new_home(installed=False)
        program = self.start(home=home)
        box = program.message_box()
        self.assertEqual((box.title, box.text, box.buttons), ("Tavrix", NOT_INSTALLED, ["OK", "Help"]))
        box.press("OK")
        program.main()
        self.end_by_escape(program)
        program = self.start(home=home)
        program.main()
        self.assertEqual(program.titles(), ["Tavrix"])

    def test_program_that_has_moved(self):
        moved = os.path.join(self.home.folder, "elsewhere")
        os.mkdir(moved)
        shutil.copy(self.home.settings, moved)
        text = ("The path to this program is not the same as the path found in the system registry, Tavrix may have "
                f"been re-installed and/or moved.\n\n{drive_path(moved)}\\TAVRIX.EXE\n\nDo you want to make this your "
                "default one?")
        for answer in ("Cancel", "No", "Yes"):
            program = self.start(environment={"TAVRIX_HOME": moved})
            box = program.message_box()
            self.assertEqual((box.title, box.text, box.buttons), ("Tavrix", text, ["Yes", "No", "Cancel", "Help"]))
            box.press(answer)
            if answer == "Cancel":
                self.assertEqual(program.wait_end(), 0)
            else:
                program.main()
                self.end_by_escape(program)
        program = self.start(environment={"TAVRIX_HOME": moved})
        program.main()
        self.assertEqual(program.titles(), ["Tavrix"])


class ShowTest(ProgramTest):
    """What ./run does where there is no display."""

    def start_show(self, *arguments):
        image = os.path.join(self.home.folder, "tavrix.png")
        environment = {**os.environ, **self.home.environment, "PYTHONPATH": os.path.dirname(__file__)}
        for name in ("DISPLAY", "WAYLAND_DISPLAY"):
            environment.pop(name, None)
        process = subprocess.Popen([sys.executable, "-m", "driver.show", image, PROGRAM, *arguments],
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, env=environment)
        self.addCleanup(process.kill)
        return process, image

    def show(self, *arguments):
        process, image = self.start_show(*arguments)
        output, errors = process.communicate(timeout=120)
        self.assertEqual(process.returncode, 0, errors)
        return output, image

    def test_screen_with_the_picture_is_saved(self):
        path, image = self.picture(400, 350)
        output, file = self.show(path)
        self.assertIn(file, output)
        shown = Image.open(file).convert("RGB")
        corner = next((x, y) for y in range(100) for x in range(20) if shown.getpixel((x, y)) == image.getpixel((0, 0)))
        part = shown.crop((*corner, corner[0] + 400, corner[1] + 350))
        self.assertIsNone(ImageChops.difference(part, image).getbbox())

    def test_boxes_are_answered(self):
        output, file = self.show("bogus")
        self.assertIn("'Tavrix'", output)
        self.assertTrue(os.path.exists(file))

    def test_interrupted_it_leaves_nothing_behind(self):
        process, _ = self.start_show()
        self.addCleanup(lambda: (process.stdout.close(), process.stderr.close()))

        def children():
            found = {}
            with open(f"/proc/{process.pid}/task/{process.pid}/children", encoding="ascii") as file:
                for pid in file.read().split():
                    try:
                        with open(f"/proc/{pid}/comm", encoding="ascii") as name:
                            found[name.read().strip()] = pid
                    except FileNotFoundError:
                        pass
            return found
        started = wait_until(lambda: (c := children()).keys() >= {"Xvfb", "openbox"} and c,
                             "the display and its window manager")
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(30), 130)
        for name in ("Xvfb", "openbox"):
            self.assertFalse(os.path.exists(f"/proc/{started[name]}"), name)


if __name__ == "__main__":
    unittest.main()
