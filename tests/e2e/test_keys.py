"""Keys of every layout reach the windows, and a held key does nothing where its press did not begin."""

import os
import time

from PIL import Image

from driver import NotInTime, wait_until
from driver.probe import KeyProbe
from support import ProgramTest

# Places of keys on the keyboard; the numbers are the same on all of them.
_ROWS = {"qwertyuiop[]": 24, "asdfghjkl;'`": 38, "\\zxcvbnm,./": 51}
_PLACE = {key: first + i for row, first in _ROWS.items() for i, key in enumerate(row)}
_MINUS, _SUPER, _ALT, _SHIFT, _ALT_GR = 20, 133, 64, 50, 108
# Where the letters of a Russian layout stand.
_RUSSIAN = [_PLACE[key] for key in "qwertyuiop[]asdfghjkl;'zxcvbnm,.`"]
# What depends on time is done more often by hand than in each run of all tests.
_TIMES = int(os.environ.get("TAVRIX_TIMES", "4"))


class SaverTest(ProgramTest):
    """Any key ends the screen saver."""

    def saver(self):
        Image.new("RGB", (30, 20), (200, 0, 0)).save(os.path.join(self.home.pictures, "a.bmp"))
        show = os.path.join(self.home.pictures, "show.tvs")
        with open(show, "w", encoding="cp1252", newline="") as file:
            file.write("".join(line + "\r\n" for line in (
                '"Tavrix Slide Show"', '"Version 1.5"', "0", '""', "0", "0", "0", "0", "0", "0", "-1", "0", '"a.bmp"', '""')))
        return show

    def assert_each_ends_it(self, layouts, combinations, role="SCRNSAVE ", title="Screen Saver Main Form"):
        self.screen.set_keyboard(layouts)
        show = self.saver()
        for keys in combinations:
            program = self.start(role + show)
            stage = program.window(title)
            wait_until(lambda: self.screen.active() == stage.id, "the keyboard on the stage")
            centre = (self.screen.width // 2, self.screen.height // 2)
            wait_until(lambda: self.screen.grab(*centre, 1, 1).getpixel((0, 0)) == (200, 0, 0), "the slide")

            def ends():
                self.screen.press_place(*keys)  # keys that come while a slide is being shown are lost
                try:
                    return program.wait_end(limit=2) == 0
                except NotInTime:
                    return False
            with self.subTest(keys=keys, layouts=layouts):
                self.assertTrue(any(ends() for _ in range(3)), "it does not end the stage")
            program.close()

    def test_keys_of_common_layouts(self):
        self.assert_each_ends_it("us", [[_PLACE["["]], [_PLACE["]"]], [_SHIFT, _PLACE["\\"]], [_SUPER]])
        self.assert_each_ends_it("de", [[_PLACE["["]], [_PLACE[";"]], [_MINUS], [_ALT_GR]])
        self.assert_each_ends_it("ru,us", [[_PLACE["p"]], [_PLACE["["]]])

    def test_letters_of_a_russian_layout(self):
        places = _RUSSIAN if _TIMES >= 20 else _RUSSIAN[::4]
        self.assert_each_ends_it("ru", [[place] for place in places])

    def test_a_show_too(self):
        title = "Tavrix Full Screen View"
        self.assert_each_ends_it("us", [[_PLACE["["]], [_SUPER]], "", title)
        self.assert_each_ends_it("ru", [[_PLACE["["]], [_PLACE["p"]]], "", title)


class CodesTest(ProgramTest):
    """The codes by which the program knows the keys."""

    def codes(self, layouts, *places):
        self.screen.set_keyboard(layouts)
        with KeyProbe(self.session, self.home) as probe:
            return [probe.code_of(place) for place in places]

    def test_letters_are_found_on_other_layouts(self):
        p, a, z, tilde = _PLACE["p"], _PLACE["a"], _PLACE["z"], _PLACE["`"]
        letters = [ord("P"), ord("A"), ord("Z")]
        for layouts in ("us", "ru", "us,ru", "ru,us", "gr", "gr,us", "il,us"):
            with self.subTest(layouts):
                self.assertEqual(self.codes(layouts, p, a, z), letters)
        self.assertEqual(self.codes("ru,de", p, z), [ord("P"), ord("Y")])  # what the user's own Latin layout says
        self.assertEqual(self.codes("ru,fr", p, a), [ord("P"), ord("Q")])
        self.assertEqual(self.codes("ru", tilde, _PLACE["["]), [192, 219])

    def test_each_letter_of_a_russian_layout_has_a_code_of_its_own(self):
        codes = self.codes("ru", *_RUSSIAN)
        self.assertEqual(len(set(codes)), len(_RUSSIAN), codes)
        self.assertNotIn(255, codes)

    def test_letters_of_the_layout_itself_stay(self):
        self.assertEqual(self.codes("de", _PLACE["y"], _PLACE["z"]), [ord("Z"), ord("Y")])
        # Keys that print a letter of their own are no punctuation, whatever stands at their place elsewhere.
        self.assertEqual(self.codes("de", _PLACE["["], _PLACE[";"], _MINUS), [255, 255, 255])
        self.assertEqual(self.codes("de,us", _PLACE["["], _PLACE[";"], _MINUS), [255, 255, 255])

    def test_a_sign_with_or_without_alt_gr_is_no_digit(self):
        self.assertEqual(self.codes("de", _PLACE["\\"]), [255])  # "#"
        self.screen.set_keyboard("de")
        with KeyProbe(self.session, self.home) as probe:
            self.assertNotIn(ord("2"), probe.codes_of(_ALT_GR, _PLACE["q"]))  # "@"

    def test_keys_without_a_letter(self):
        self.assertEqual(self.codes("us", _SUPER, _PLACE["["], _PLACE["]"], _MINUS), [91, 219, 221, 189])


class MnemonicsTest(ProgramTest):
    def test_alt_and_the_letter_of_the_latin_layout(self):
        for layouts in ("ru,us", "us,ru"):
            with self.subTest(layouts):
                self.screen.set_keyboard(layouts)
                program, _, _ = self.open(400, 350)
                program.focused()
                self.screen.press_place(_ALT, _PLACE["f"])
                program.wait(program.popups, "the File menu")
                program.close()


class HeldKeyTest(ProgramTest):
    session_options = {"repeat": (150, 20)}

    def hold(self, key, until, what):
        """Holds a key until something has happened, and then until it has repeated a few more times."""
        with self.screen.held(key):
            wait_until(until, what)
            time.sleep(0.4)

    def test_escape_that_ends_a_box_does_not_end_the_program(self):
        program, window, _ = self.open(400, 350)
        for _ in range(_TIMES):
            program.menu_entry("Options", "Image Information").act()
            program.message_box()
            # A press that began in the main view is no press in the box.
            wait_until(lambda: self.screen.active() not in (0, window.id), "the keyboard in the box")
            self.hold("Escape", lambda: self.screen.active() == window.id, "the end of the box")
            self.assertTrue(program.running())
        self.end_by_escape(program)

    def test_escape_that_ends_a_dialog_does_not_end_the_program(self):
        program, window, _ = self.open(400, 350)
        for _ in range(_TIMES):
            program.menu_entry("File", "Open Image").act()
            self.dialog(program, "Open Image")
            self.hold("Escape", lambda: "Open Image" not in program.titles(), "the end of the dialog")
            wait_until(lambda: self.screen.active() == window.id, "the keyboard on the main view")
            self.assertTrue(program.running())
        self.end_by_escape(program)

    def test_escape_that_closes_a_menu_or_the_stage_does_not_end_the_program(self):
        program, window, _ = self.open(400, 350)
        self.screen.press("Alt+f")
        program.wait(program.popups, "the menu")
        self.hold("Escape", lambda: not program.popups(), "the end of the menu")
        self.assertTrue(program.running())
        program.menu_entry("Options", "Full Screen View").act()
        stage = program.window("Tavrix Full Screen View")
        wait_until(lambda: self.screen.active() == stage.id, "the keyboard on the stage")
        self.hold("Escape", lambda: self.screen.active() == window.id, "the end of the stage")
        self.assertTrue(program.running())

    def test_escape_held_in_the_main_view_does_not_answer_the_question(self):
        program, _, _ = self.open(400, 350)
        self.screen.press("Alt+Right")
        wait_until(lambda: any("Untitled.BMP" in t for t in program.titles()), "the turned picture")
        self.hold("Escape", lambda: self.box_text(program), "the question")
        self.assertIn("Discard changes and exit?", program.message_box().text)
        program.message_box().press("No")
        self.assertTrue(program.running())

    def test_a_letter_that_presses_a_button_opens_no_menu_below(self):
        program, window, _ = self.open(400, 350)
        for _ in range(_TIMES):
            program.menu_entry("Favorites", "Folders", "Favorite Folder").act()
            self.dialog(program, "Favorite Folder")
            with self.screen.held("Alt_L"):
                # Below it is the letter of the Options menu.
                self.hold("o", lambda: self.screen.active() == window.id, "the end of the dialog")
                self.assertEqual(program.popups(), [])
            self.assertEqual(program.titles(), [window.title])
        self.end_by_escape(program)

    def test_a_key_that_goes_up_in_another_program_is_a_new_one_when_it_goes_down(self):
        path, _ = self.picture(400, 2000)
        another = self.start(home=self.new_home()).main()
        program = self.start(path)
        window = program.main(path)
        program.menu_entry("Options", "Image Information").act()
        box = program.message_box()
        wait_until(lambda: self.screen.active() not in (0, window.id, another.id), "the keyboard in the box")
        with self.screen.held("Down"):
            self.screen.activate(another)
            wait_until(lambda: self.screen.active() == another.id, "the keyboard in the other program")
        box.press("OK")
        self.screen.activate(window)
        wait_until(lambda: self.screen.active() == window.id, "the keyboard on the main view")
        bar = program.root().find("scroll bar")
        self.assertEqual(bar.value, 0)
        self.screen.press("Down")
        wait_until(lambda: bar.value > 0, "the picture further down")

    def box_text(self, program):
        return any(title == "Tavrix" for title in program.titles())

    def test_a_held_arrow_scrolls_on(self):
        path, _ = self.picture(400, 2000)
        program = self.start(path)
        program.main(path)
        bar = program.root().find("scroll bar")
        self.hold("Down", lambda: bar.value >= bar.largest, "the end of the picture")


class MetacityHeldKeyTest(HeldKeyTest):
    session_options = {"window_manager": "metacity", "repeat": (150, 20)}
