"""The show as the screen saver, and its settings, on the real display."""

import os
import time

from driver import drive_path, wait_until
from test_show import StageTest

_SAVER = "Screen Saver Main Form"
_SETTINGS = "Tavrix - [Screen Saver Settings]"


class SaverTest(StageTest):
    def start_saver(self, *pictures, settings="", interval=60):
        self.home.write_settings("[Viewer]\nBackgroundColor=4\n" + settings)
        path = self.show_file(*pictures, interval=interval)
        program = self.start("SCRNSAVE", path)
        stage = program.window(_SAVER)
        wait_until(lambda: self.screen.active() == stage.id, "the keyboard on the saver")
        return program

    def wiggle(self, times):
        for step in range(times):
            self.screen.move_pointer(600 + 3 * (step % 7), 500 + 2 * (step % 5))
            time.sleep(0.03)  # so that the moves are heard one by one

    def test_it_covers_the_display_and_any_key_ends_it(self):
        small, wide, _ = self.pictures()
        for key in ("a", "Shift_L", "F1", "Right", "Delete"):
            program = self.start_saver("small.bmp", "wide.bmp")
            self.shows(small, "the first picture")
            self.screen.press(key)
            self.assertEqual(program.wait_end(), 0)

    def test_keys_of_other_layouts_end_it(self):
        small, _, _ = self.pictures()
        self.addCleanup(self.screen.set_keyboard, "us")
        for layout in ("ru", "gr", "de"):
            self.screen.set_keyboard(layout)
            program = self.start_saver("small.bmp")
            self.shows(small, "the picture")
            self.screen.press_place(38 if layout != "de" else 21)  # on the German one the dead acute
            self.assertEqual(program.wait_end(), 0)

    def test_a_button_of_the_mouse_ends_it(self):
        small, _, _ = self.pictures()
        for button in (1, 3):
            program = self.start_saver("small.bmp")
            self.shows(small, "the picture")
            self.screen.click(640, 500, button=button)
            self.assertEqual(program.wait_end(), 0)

    def test_a_jolt_does_not_end_it_but_moving_the_mouse_does(self):
        small, _, _ = self.pictures()
        program = self.start_saver("small.bmp")
        self.shows(small, "the picture")
        self.screen.move_pointer(400, 400)
        time.sleep(0.3)
        self.assertTrue(program.running())
        self.wiggle(30)
        self.assertEqual(program.wait_end(), 0)

    def test_a_close_request_ends_it(self):
        small, _, _ = self.pictures()
        program = self.start_saver("small.bmp")
        self.shows(small, "the picture")
        self.screen.ask_to_close(program.window(_SAVER))
        self.assertEqual(program.wait_end(), 0)

    def test_it_loops_and_goes_on_where_it_was(self):
        small, wide, beside = self.pictures()
        program = self.start_saver("small.bmp", "wide.bmp", "beside.bmp", interval=1,
                                   settings="ResumeLastDisplayed=True\n")
        self.shows(wide, "the second picture")
        self.shows(beside, "the third picture")
        self.shows(small, "the first picture again")
        self.shows(wide, "the second picture again")
        self.assertEqual(self.home.setting("ImageLastDisplayed"), "1")
        program.kill()
        self.start("SCRNSAVE", os.path.join(self.home.pictures, "show.tvs"))
        self.shows(wide, "the picture of the last time")

    def test_a_second_saver_ends_at_once(self):
        small, _, _ = self.pictures()
        program = self.start_saver("small.bmp")
        self.shows(small, "the picture")
        self.assertEqual(self.start("SCRNSAVE", os.path.join(self.home.pictures, "show.tvs")).wait_end(), 0)
        self.assertEqual(self.start("C").wait_end(), 0)
        self.assertTrue(program.running())

    def test_a_picture_that_cannot_be_shown_ends_it_with_a_box(self):
        self.pictures()
        program = self.start_saver("small.bmp", "none.bmp", interval=1)
        box = program.message_box()
        self.assertTrue(box.text.startswith("Unable to view image:"), box.text)
        box.press("OK")
        self.assertEqual(program.wait_end(), 0)


class SettingsTest(StageTest):
    def open_settings(self):
        program = self.start("/c")
        return program, self.dialog(program, _SETTINGS)

    def test_the_show_is_chosen_and_its_options_saved(self):
        self.pictures()
        path = self.show_file("small.bmp", interval=0)
        self.home.write_settings(f"[Viewer]\nLastSlideShow={drive_path(path)}\nImageLastDisplayed=5\n")
        program, dialog = self.open_settings()
        dialog.find("push button", "OK").act()
        box = program.message_box()
        self.assertEqual(box.text, "A screen saver file has not been selected yet, unable to save changes...")
        box.press("OK")
        dialog.find("push button", "Select File").act()
        load = self.dialog(program, "Load - Tavrix Slide Show  (.tvs)")
        load.find("push button", "OK").act()
        wait_until(lambda: self.screen.active() == program.window(_SETTINGS).id, "the settings again")
        self.assertEqual(self.home.setting("ImageLastDisplayed"), "0")
        dialog.find("check box", "Start at last image displayed.").act("Toggle")
        dialog.find("radio button", "Dark Red").act("Toggle")
        dialog.find("push button", "OK").act()
        self.assertEqual(program.wait_end(), 0)
        self.assertEqual(self.home.setting("ResumeLastDisplayed"), "True")
        self.assertEqual(self.home.setting("BackgroundColor"), "4")
        self.assertEqual(self.home.setting("RecentShow1"), drive_path(path))
        with open(path, encoding="cp1252", newline="") as file:
            self.assertEqual(file.read().split("\r\n")[6], "5")

        _, dialog = self.open_settings()
        dialog.find("label", drive_path(path))

    def test_they_open_from_the_menu_once(self):
        program = self.start()
        program.main()
        program.menu_entry("File", "System", "Screen Saver", "Settings").act()
        wait_until(lambda: [window for window in self.screen.windows() if window.title == _SETTINGS],
                   "the settings from the menu")
        self.assertEqual(self.start("C").wait_end(), 0)
        self.screen.press("Escape")
        wait_until(lambda: _SETTINGS not in [window.title for window in self.screen.windows()],
                   "the end of the settings")
        self.assertTrue(program.running())
