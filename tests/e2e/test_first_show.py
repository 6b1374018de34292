"""Somebody who has never seen the program follows the page "How to create a slide show" to its end, by what it says: makes a
show, orders and describes it, saves it, plays it, and makes it the screen saver."""

import os
import unittest

from PIL import Image, ImageChops

from driver import wait_until
from help_window import HelpWindow
from support import ProgramTest

_EDITOR = "Tavrix - [Slide Show Editor]"
_VIEW_LIST = "[View List]  ---  Slide Show Images:"
_SETTINGS = "Tavrix - [Screen Saver Settings]"
_COLOURS = {"beach": (200, 30, 30), "harbour": (30, 200, 30), "island": (30, 30, 200)}


class FirstShowTest(HelpWindow, ProgramTest):
    def setUp(self):
        super().setUp()
        self.disk = os.path.join(self.home.folder, "disk")
        os.makedirs(self.disk)
        for name, colour in _COLOURS.items():
            Image.new("RGB", (300, 200), colour).save(os.path.join(self.disk, name + ".bmp"))

    def opened(self, program, title):
        window = program.window(title)
        wait_until(lambda: self.screen.active() == window.id, f"the keyboard in {title!r}")
        top = wait_until(lambda: next((top for top in program.root().children() if top.name == title
                                       and top.has("showing")), None), f"{title!r} on the accessibility bus")
        return window, top

    def menu(self, program, *letters):
        """The menus by their letters."""
        for number, letter in enumerate(letters):
            if number > 0:
                wait_until(lambda n=number: len(program.popups()) >= n, f"the menu {number} of {letters}")
            self.screen.press(f"Alt+{letter}" if number == 0 else letter)

    def slides(self, editor):
        return [row.name.split("\\")[-1] for row in editor.find("list", _VIEW_LIST).children()]

    def wait_slides(self, editor, *names):
        wait_until(lambda: self.slides(editor) == [name + ".bmp" for name in names],
                   lambda: f"the slides {names}; there are {self.slides(editor)}")

    def wait_colour(self, colour):
        """The middle of the screen."""
        wait_until(lambda: self.screen.grab(self.screen.width // 2, self.screen.height // 2, 4, 4).convert("RGB")
                   .getpixel((1, 1)) == colour, f"{colour} in the middle of the screen")

    def test_the_page_leads_to_a_screen_saver(self):
        program = self.start(environment={"TAVRIX_DRIVES": f"C=/;D={self.disk},fixed"})
        main = program.main()
        # The page stays open beside the work.
        self.menu(program, "h", "o", "h")
        help_window, top = self.help_window(program)
        self.wait_page(top, "How to create a slide show")
        text = top.find("label", "How to create a slide show").text.replace("\n", " ")

        def says(*words):
            for word in words:
                self.assertIn(word, text)

        says("1. Open the editor.", "Slide Show, Slide Show Editor")
        self.screen.activate(main)
        self.menu(program, "s", "e")
        window, editor = self.opened(program, _EDITOR)

        says("2. Choose the pictures.", ">>", "View List")
        self.screen.press("Alt+d", "d")
        wait_until(lambda: len(editor.find("list", "Files:").children()) == 3, "the files of the drive")
        editor.find("push button", "Add all files").act()
        self.wait_slides(editor, "beach", "harbour", "island")

        says("3. Put them in order.", "F7 and F8")
        rows = editor.find("list", _VIEW_LIST).children()
        x, y, _, height = rows[2].extents
        self.screen.click(x + 15, y + height // 2)
        self.screen.press("F7")
        self.wait_slides(editor, "island", "beach", "harbour")

        says("4. Describe them", "F3")
        self.screen.press("F3")
        _, descriptions = self.opened(program, "Edit Slide Descriptions")
        self.screen.type("The island")
        descriptions.find("push button", "OK").act()
        self.opened(program, _EDITOR)

        says("5. Choose how it plays.", "Options sets")
        self.screen.press("Alt+o")
        _, options = self.opened(program, "Slide Show Options")
        options.find("push button", "OK").act()
        self.opened(program, _EDITOR)

        says("6. Save it.", "Press Save, enter a name and choose a folder, and press OK. Tavrix asks once more")
        self.screen.press("Alt+s")
        self.opened(program, "Save - Tavrix Slide Show  (.tvs)")
        self.screen.press("Ctrl+a")
        self.screen.type("Sea")
        self.screen.press("Return")
        question = program.message_box()
        self.assertIn("Is this filename OK?", question.text)
        question.press("Yes")
        path = os.path.join(self.home.program, "SLIDES", "Sea.tvs")
        other = os.path.join(self.disk, "Sea.tvs")
        saved = wait_until(lambda: next((file for file in (path, other) if os.path.exists(file)), None), "the file of the show")
        self.opened(program, _EDITOR)

        says("7. Play it.", "View Show plays it over the whole screen", "most other keys end it")
        self.screen.press("Alt+h")
        stage = program.window("Tavrix Full Screen View")
        wait_until(lambda: self.screen.active() == stage.id, "the keyboard on the stage")
        self.wait_colour(_COLOURS["island"])
        self.screen.press("Right")
        self.wait_colour(_COLOURS["beach"])
        self.screen.press("a")
        self.opened(program, _EDITOR)
        self.screen.press("Alt+c")
        main = program.main()

        says("8. Make it your screen saver.", "File, System, Screen Saver, Settings, press Select File and choose the slide show, then press OK")
        self.screen.activate(main)
        self.menu(program, "f", "s", "s", "s")
        settings = wait_until(lambda: next((w for w in self.screen.windows() if w.title == _SETTINGS), None), "the settings")
        wait_until(lambda: self.screen.active() == settings.id, "the keyboard in the settings")
        self.screen.press("Alt+f")
        chooser = wait_until(lambda: next((w for w in self.screen.windows()
                                           if w.title == "Load - Tavrix Slide Show  (.tvs)"), None), "the shows")
        wait_until(lambda: self.screen.active() == chooser.id, "the keyboard among the shows")
        self.screen.press("Return")
        wait_until(lambda: self.screen.active() == settings.id, "the keyboard in the settings again")
        self.screen.press("Alt+o")
        wait_until(lambda: self.home.in_store("CurrentSaver"), "the screen saver")
        self.assertEqual(os.path.basename(saved), self.home.in_store("CurrentSaver").split("\\")[-1])


if __name__ == "__main__":
    unittest.main()
