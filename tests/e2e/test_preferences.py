"""The windows of the preferences and of the Help menu, and what opens at the start."""

import os
import unittest

from driver import wait_until
from driver.program import PROGRAM
from support import ProgramTest

_TIPS = os.path.join(os.path.dirname(PROGRAM), "..", "share", "tavrix", "TIPOFDAY.DAT")


class PreferencesTest(ProgramTest):

    def close_by_escape(self, program, title):
        self.screen.press("Escape")
        program.wait(lambda: title not in program.titles(), f"the end of {title!r}")

    def test_the_first_start_shows_a_tip_and_then_the_about_box(self):
        self.home = self.new_home(quiet=False)
        program = self.start()
        tip = self.dialog(program, "Tip of the Day")
        self.assertNotIn("About Tavrix", program.titles())
        with open(_TIPS, encoding="utf-8") as file:
            tips = file.read().splitlines()
        shown = wait_until(lambda: next((label.name for label in tip.all("label") if label.name in tips), None),
                           "a tip of the file")
        tip.find("push button", "Next Tip").act()
        following = tips[(tips.index(shown) + 1) % len(tips)]
        wait_until(lambda: any(label.name == following for label in tip.all("label")), "the next tip")
        self.screen.press("Alt+s")
        wait_until(lambda: self.home.in_store("Show Tips at Startup") == "0", "the stored choice")
        self.close_by_escape(program, "Tip of the Day")
        self.dialog(program, "About Tavrix")
        self.close_by_escape(program, "About Tavrix")
        program.main()
        self.end_by_escape(program)

        program = self.start()
        self.dialog(program, "About Tavrix")
        self.assertNotIn("Tip of the Day", program.titles())
        self.screen.press("Return")
        program.wait(lambda: "About Tavrix" not in program.titles(), "the end of the about box")
        self.end_by_escape(program)

    def test_preferences_take_effect_at_once_and_stay(self):
        program, window, view = self.open(300, 200)
        program.menu_entry("Options", "Preferences").act()
        self.dialog(program, "Preferences")
        self.screen.press("Alt+m", "Alt+d", "Alt+o")
        program.wait(lambda: "Preferences" not in program.titles(), "the end of the dialog")
        self.assertEqual(self.home.setting("WindowMaximized"), "True")
        self.assertEqual(self.home.setting("StartupDialog"), "0")
        screen = self.screen.grab().size
        wait_until(lambda: program.main(os.path.join(self.home.pictures, "picture.bmp")).width >= screen[0] - 20,
                   "the maximised window")
        program.menu_entry("Options", "Preferences").act()
        self.dialog(program, "Preferences")
        self.screen.press("Alt+v")
        self.close_by_escape(program, "Preferences")
        self.assertEqual(self.home.setting("ViewFullScreen"), "False")

    def test_the_windows_of_the_menus_open_and_escape_closes_them(self):
        program = self.start()
        program.main()
        for names, title in ((("Options", "Preferences"), "Preferences"),
                             (("Options", "Advanced Settings"), "Advanced Settings"),
                             (("Help", "About Tavrix"), "About Tavrix"),
                             (("Help", "System Information"), "System Information"),
                             (("Help", "Tip of the Day"), "Tip of the Day")):
            with self.subTest(title):
                program.menu_entry(*names).act()
                self.dialog(program, title)
                self.close_by_escape(program, title)
        self.end_by_escape(program)

    def test_the_question_about_an_upgrade_comes_before_the_address(self):
        program = self.start()
        program.main()
        program.menu_entry("Help", "World Wide Web", "Check For Upgrade").act()
        box = program.message_box()
        self.assertEqual(box.buttons, ["Yes", "No"])
        box.press("Yes")
        box = wait_until(lambda: (found := program.message_box()).buttons == ["OK"] and found, "the second box")
        self.assertIn("/tavrix/version.htm...", box.text)
        box.press("OK")
        self.end_by_escape(program)


if __name__ == "__main__":
    unittest.main()
