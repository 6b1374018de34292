"""The help window, Image Information, and the recent files of the menu."""

import os
import shutil
import unittest

from driver import drive_path, recent_caption, wait_until
from driver.program import PROGRAM
from help_window import HELP, HelpWindow
from support import ProgramTest


class HelpTest(HelpWindow, ProgramTest):

    def test_f1_opens_the_page_of_the_main_view_and_escape_closes_it(self):
        program, main, view = self.open(400, 350)
        self.screen.press("F1")
        window, top = self.help_window(program)
        self.wait_page(top, "The main view and its keys")
        self.assertFalse(window.modal)
        self.press_in(window, "Escape")
        wait_until(lambda: HELP not in program.titles(), "the help window's end")
        self.assertTrue(program.running())
        self.press_in(main, "F1")
        self.help_window(program)
        self.end_from(main, program)

    def end_from(self, main, program):
        """Ends the program by its main view; the help goes along."""
        self.press_in(main, "Escape")
        self.assertEqual(program.wait_end(), 0)

    def test_contents_links_and_back_by_keys(self):
        program = self.start()
        main = program.main()
        program.menu_entry("Help", "Help Contents").act()
        window, top = self.help_window(program)
        self.wait_page(top, "Contents")
        self.press_in(window, "Tab", "Tab", "Return")
        self.wait_page(top, "How to create a slide show")
        self.screen.press("Alt+Left")
        self.wait_page(top, "Contents")
        top.find("push button", "Close").act()
        wait_until(lambda: HELP not in program.titles(), "the help window's end")
        self.end_from(main, program)

    def test_a_search_by_keys_leads_to_a_page_and_back(self):
        program = self.start()
        main = program.main()
        program.menu_entry("Help", "Help Topic", "Search...").act()
        window, top = self.help_window(program)
        self.screen.activate(window)
        wait_until(lambda: top.find("text", "Search").has("focused"), "the keyboard in the search field")
        self.screen.press("w", "a", "l", "l", "p")
        wait_until(lambda: any(item.name == "The desktop: capture and wallpaper"
                               for item in top.find("list").children()), "the page that tells of it")
        self.screen.press("Down")
        wait_until(lambda: any(item.has("selected") for item in top.find("list").children()), "the chosen page")
        self.screen.press("Escape")
        self.wait_page(top, "The desktop: capture and wallpaper")
        self.screen.press("Alt+Left")
        self.wait_page(top, "Searching this help")
        self.screen.press("Alt+Right")
        self.wait_page(top, "The desktop: capture and wallpaper")
        self.end_from(main, program)

    def test_the_program_is_used_while_help_is_open(self):
        program, main, view = self.open(2000, 1500)
        self.screen.press("F1")
        _, top = self.help_window(program)
        program.menu_entry("Edit", "Clear Screen").act()
        program.wait(lambda: "Tavrix" in program.titles(), "the empty view")
        self.assertIn(HELP, program.titles())

    def test_help_button_of_a_box_leaves_the_box_open_and_help_usable(self):
        home = self.new_home(installed=False)
        program = self.start(home=home)
        box = program.message_box()
        box.accessible.find("push button", "Help").act()
        window, top = self.help_window(program)
        self.wait_page(top, "A program that was moved or newly installed")
        self.assertTrue(box.accessible.has("showing"))
        self.press_in(window, "Alt+Home")
        self.wait_page(top, "Contents")
        item = next(item for item in top.find("tree", "Pages").children() if item.name == "Opening images")
        x, y, width, height = item.extents
        self.screen.click(x + width // 2, y + height // 2)
        self.wait_page(top, "Opening images")
        box.press("OK")
        main = program.main()
        self.assertIn(HELP, program.titles())
        self.screen.click(x + width // 2, y - height // 2)
        self.wait_page(top, "The main view and its keys")
        self.end_from(main, program)

    def test_help_that_is_open_stays_usable_under_a_box(self):
        program, main, _ = self.open(400, 350)
        self.screen.press("F1")
        window, top = self.help_window(program)
        program.menu_entry("Options", "Image Information").act()
        self.box(program, "Tavrix - [Image Information]")
        self.press_in(window, "Alt+Home")
        self.wait_page(top, "Contents")
        self.assertIn("Tavrix - [Image Information]", program.titles())

    def lone_copy(self):
        """The executable in a folder of its own."""
        alone = os.path.join(self.home.folder, "alone")
        os.mkdir(alone)
        return shutil.copy2(PROGRAM, alone)

    def test_the_help_file_of_all_users_is_found(self):
        shared = os.path.join(self.home.folder, "shared")
        os.mkdir(shared)
        shutil.copy(os.path.join(os.path.dirname(PROGRAM), "TAVRIX.HLP"), shared)
        program = self.start_copy(self.lone_copy(), environment={"TAVRIX_SHARED": shared})
        program.main()
        self.screen.press("F1")
        self.help_window(program)

    def test_a_missing_help_file_is_told(self):
        program = self.start_copy(self.lone_copy())
        main = program.main()
        self.screen.press("F1")
        box = program.message_box()
        self.assertEqual((box.title, box.text, box.buttons), (
            "Tavrix", f"Unable to open the help file:\n\n{drive_path(self.home.program)}\\TAVRIX.HLP\n\n"
                      "File not found...", ["OK"]))
        box.press("OK")
        shutil.copy(os.path.join(os.path.dirname(PROGRAM), "TAVRIX.HLP"), self.home.program)
        self.press_in(main, "F1")
        self.help_window(program)

    def start_copy(self, executable, **options):
        """Starts another executable as the program."""
        return self.start(program=executable, **options)

    # Image information

    def box(self, program, title):
        """The box, once it has the keyboard, which it takes from whatever has it when it opens."""
        window = program.window(title)
        wait_until(lambda: self.screen.active() == window.id, f"the keyboard on {title!r}")
        return program.wait(lambda: next((top for top in program.root().children()
                                          if top.name == title and top.has("showing")), None), f"the box {title!r}")

    def test_image_information(self):
        program, _, _ = self.open(400, 350)
        path = os.path.join(self.home.pictures, "picture.bmp")
        program.menu_entry("Options", "Image Information").act()
        box = program.message_box()
        self.assertEqual((box.title, box.buttons), ("Tavrix - [Image Information]", ["OK", "Help"]))
        lines = box.text.split("\n")
        self.assertEqual(lines[:11], [
            "Current Image File:", "", drive_path(path), "_" * 21, "", "Image Size:  (pixels)", "", "Width = 400",
            "Height = 350", "_" * 21, ""])
        size = os.path.getsize(path)
        self.assertIn(lines[11], (f"File size = {size:,} bytes", f"File size = {size} bytes"))
        self.assertRegex(lines[12], r"^File date and time = .*\d:\d\d")
        self.assertEqual(lines[13:], ["File type = Windows Bitmap (.BMP)"])
        self.screen.press("F1")
        _, top = self.help_window(program)
        self.wait_page(top, "Image information")
        box.press("OK")
        self.assertTrue(program.running())

    # Recent files

    def test_recent_file_opens_from_the_menu(self):
        first, image = self.picture(400, 350, "first.bmp")
        second, _ = self.picture(500, 380, "second.bmp")
        self.home.write_settings(f"[Viewer]\nRecent1={drive_path(second)}\nRecent2={drive_path(first)}\n")
        program = self.start(second)
        program.main(second)
        program.menu_entry("File", recent_caption(first)).act()
        window = program.main(first)
        self.view(window, image, x=0, y=0, width=400, height=350)
        os.remove(second)
        program.menu_entry("File", recent_caption(second)).act()
        box = program.message_box()
        self.assertEqual((box.title, box.text, box.buttons), (
            "Tavrix", f"Unable to open the recent file:\n\n{drive_path(second)}\n\nFile not found...", ["OK"]))
        box.press("OK")
        program.main()
        self.assertEqual(program.titles(), ["Tavrix"])


if __name__ == "__main__":
    unittest.main()
