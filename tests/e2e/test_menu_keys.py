"""The menus by keyboard, and how they look."""

import os
import re

from driver import wait_unchanged, wait_until
from driver.drop import DropSource
from support import ProgramTest


class KeyboardTest(ProgramTest):
    """The main view has the keyboard before anything is pressed."""

    def open(self, *arguments, **options):
        program, window, view = super().open(*arguments, **options)
        wait_until(lambda: self.screen.active() == window.id, "the keyboard in the main view")
        return program, window, view


class MenuKeysTest(KeyboardTest):
    def opened(self, program):
        """The menu of the bar whose popup is open."""
        program.wait(program.popups, "a menu")
        wait_unchanged(lambda: [w.id for w in program.popups()], "the menus", quiet=0.15)
        top = min(program.popups(), key=lambda w: (w.y, w.x))
        # Popups are not in the tree of accessible objects; the entry of the bar above it is.
        for entry in program.root().find("menu bar").children():
            x, _, width, _ = entry.extents
            if entry.has("visible") and abs(x - top.x) <= 3:
                return entry.name
        return None

    def close_menus(self, program):
        for _ in range(4):
            if not program.popups():
                break
            self.screen.press("Escape")
            wait_unchanged(lambda: [w.id for w in program.popups()], "the menus", quiet=0.15)
        bar = program.root().find("menu bar")

        def chosen():
            return any(entry.has("selected") or entry.has("focused") for entry in bar.children())
        if wait_unchanged(chosen, "the bar", quiet=0.3):
            self.screen.press("Escape")  # leaves the bar, which still has the keyboard
        wait_until(lambda: not chosen(), "the keyboard out of the bar")
        self.assertTrue(program.running())

    def test_each_letter_of_the_bar_opens_its_menu(self):
        program, _, _ = self.open(700, 350)
        for letter, menu in (("f", "File"), ("e", "Edit"), ("s", "Slide Show"), ("o", "Options"), ("h", "Help")):
            with self.subTest(menu):
                self.screen.press(f"Alt+{letter}")
                self.assertEqual(self.opened(program), menu)
                self.close_menus(program)
        self.end_by_escape(program)

    def test_alt_and_f_is_always_the_file_menu(self):
        program, _, _ = self.open(700, 350)
        for _ in range(int(os.environ.get("TAVRIX_TIMES", "4"))):
            self.screen.press("Alt+f")
            self.assertEqual(self.opened(program), "File")
            self.close_menus(program)
        self.screen.press("Alt+f")
        for _ in range(5):
            self.screen.press("Alt+f")
            if program.popups():
                self.assertEqual(self.opened(program), "File")
        self.close_menus(program)

    def test_a_menu_stays_open_where_a_screen_reader_is_slow(self):
        program, _, _ = self.open(700, 350)
        for letter in "fe":
            with self.session.bus.standing_still():
                self.screen.press(f"Alt+{letter}")
                menu = program.wait(program.popups, "the menu")
            self.assertEqual(wait_unchanged(program.popups, "the menu", quiet=0.5), menu)
            self.screen.press("Alt_L")  # which still closes it
            program.wait(lambda: not program.popups(), "the end of the menu")
            self.close_menus(program)

    def test_favorites_are_reached_by_arrows(self):
        program, _, _ = self.open(700, 350)
        self.screen.press("Alt+f")
        self.opened(program)
        for _ in range(6):  # there are menus below some entries
            self.screen.press("Right")
            if self.opened(program) == "Favorites":
                break
        self.assertEqual(self.opened(program), "Favorites")
        self.close_menus(program)

    def test_f10_opens_the_menu_bar(self):
        program, _, _ = self.open(700, 350)
        for _ in range(3):
            self.screen.press("F10")
            self.assertEqual(self.opened(program), "File")
            self.close_menus(program)
        self.end_by_escape(program)

    def test_x_is_exit_and_p_explores(self):
        program, _, _ = self.open(700, 350)
        self.screen.press("Alt+f")
        self.opened(program)
        self.screen.press("p")
        wait_until(lambda: len(program.popups()) == 2, "the menu below Explore")
        self.close_menus(program)
        self.screen.press("Alt+f")
        self.opened(program)
        self.screen.press("x")
        self.assertEqual(program.wait_end(), 0)

    def test_s_is_clear_screen(self):
        program, _, _ = self.open(700, 350)
        self.screen.press("Alt+e")
        self.opened(program)
        self.screen.press("s")
        wait_until(lambda: program.titles() == ["Tavrix"], "the empty view")

    def test_letters_lead_through_the_whole_tree(self):
        """Each letter that a menu underlines opens what it stands for; entries that would do something are left out."""
        program, _, _ = self.open(700, 350)
        for keys, menus in ((("f",), 1), (("f", "i"), 2), (("f", "t"), 2), (("f", "m"), 2), (("f", "e"), 2), (("f", "c"), 2),
                            (("f", "d"), 2), (("f", "p"), 2), (("f", "v"), 2), (("f", "r"), 2), (("f", "s"), 2),
                            (("f", "s", "s"), 3), (("e", "f"), 2), (("e", "r"), 2), (("e", "e"), 2), (("s", "p"), 2),
                            (("h", "w"), 2), (("h", "o"), 2)):
            with self.subTest(keys):
                self.screen.press(f"Alt+{keys[0]}")
                program.wait(program.popups, "the menu")
                for key in keys[1:]:
                    wait_unchanged(lambda: [w.id for w in program.popups()], "the menus", quiet=0.1)
                    self.screen.press(key)
                wait_until(lambda: len(program.popups()) == menus, lambda: f"{menus} menus, not {len(program.popups())}")
                self.close_menus(program)

    def test_a_line_is_a_line(self):
        """A stray "-" stood in the middle of each line between entries."""
        program, _, _ = self.open(700, 350)
        self.screen.press("Alt+o")
        self.opened(program)
        popup = program.popups()[0]
        image = wait_unchanged(lambda: self.screen.grab(popup.x, popup.y, popup.width, popup.height), "the menu").convert("L")
        entries = next(e for e in program.root().find("menu bar").children() if e.name == "Options")
        y, height = next((e.extents[1], e.extents[3]) for e in _all(entries) if e.role == "separator")
        line = image.crop((12, y - popup.y, popup.width - 12, y - popup.y + height))
        rows = [line.crop((0, row, line.width, row + 1)).getextrema() for row in range(line.height)]
        self.assertTrue(all(low == high for low, high in rows), rows)
        self.assertGreater(len(set(rows)), 1, "there is no line")

    def test_nothing_without_a_name_is_listed(self):
        program, _, _ = self.open(700, 350)

        def names(entries):
            for entry in entries:
                yield entry.name
                yield from names(entry.entries)
        self.assertNotIn("", [re.sub(r"\s", "", name) for name in names(program.menu_tree())])


def _all(entry):
    for child in entry.children():
        yield child
        yield from _all(child)


class MetacityMenuKeysTest(KeyboardTest):
    session_options = {"window_manager": "metacity"}

    opened, close_menus = MenuKeysTest.opened, MenuKeysTest.close_menus
    test_alt_and_f_is_always_the_file_menu = MenuKeysTest.test_alt_and_f_is_always_the_file_menu
    test_f10_opens_the_menu_bar = MenuKeysTest.test_f10_opens_the_menu_bar


class FullScreenButtonTest(KeyboardTest):
    """The button in the corner of the main view."""

    SIDE = 15  # pixels of 228 twips, without their fraction

    def corner(self, window):
        """What stands in the lower right corner of the window's inside."""
        return self.screen.grab(window.x + window.width - self.SIDE, window.y + window.height - self.SIDE, self.SIDE,
                                self.SIDE)

    def assert_opens_the_stage(self, program, window):
        self.screen.click(window.x + window.width - 8, window.y + window.height - 8)
        stage = program.window("Tavrix Full Screen View")
        wait_until(lambda: self.screen.active() == stage.id, "the keyboard on the stage")
        self.screen.press("a")
        wait_until(lambda: self.screen.active() == window.id, "the end of the stage")

    def test_it_comes_with_the_pointer_where_a_picture_fills_the_corner(self):
        program, window, view = self.open(400, 350)
        bare = self.corner(window).tobytes()
        self.screen.move_pointer(window.x + window.width - 8, window.y + window.height - 8)
        wait_until(lambda: self.corner(window).tobytes() != bare, "the button")
        self.assert_opens_the_stage(program, window)
        self.screen.move_pointer(*window.centre)
        wait_until(lambda: self.corner(window).tobytes() == bare, "the whole picture")
        self.screen.move_pointer(window.x + window.width - 8, window.y + window.height - 8)
        wait_until(lambda: self.corner(window).tobytes() != bare, "the button")
        self.screen.move_pointer(window.x + window.width + 60, window.y + window.height + 60)
        wait_until(lambda: self.corner(window).tobytes() == bare, "the whole picture once the pointer has left the window")

    def test_it_comes_by_tab(self):
        program, window, _ = self.open(400, 350)
        self.screen.press("Tab")
        button = program.root().find("push button", "Full Screen View")
        wait_until(lambda: button.has("focused"), "the keyboard on the button")
        self.screen.press("space")
        stage = program.window("Tavrix Full Screen View")
        wait_until(lambda: self.screen.active() == stage.id, "the keyboard on the stage")
        self.screen.press("a")
        wait_until(lambda: self.screen.active() == window.id, "the end of the stage")
        wait_until(lambda: not program.root().all("push button", "Full Screen View"), "the end of the button")

    def test_it_stands_above_where_a_bar_is_on_show(self):
        for size in ((2000, 600), (600, 2000), (250, 2000), (2000, 2000)):
            with self.subTest(size):
                path, _ = self.picture(*size, "p%dx%d.bmp" % size)
                program = self.start(path)
                program.main(path)
                button = program.root().find("push button", "Full Screen View")
                x, y, width, height = button.extents
                # A button has a frame of its own all around.
                image = wait_unchanged(lambda: self.screen.grab(x, y, width, height), "the button")
                edge = image.crop((2, 1, width - 2, 2)).convert("L").getextrema()
                self.assertLess(edge[1] - edge[0], 60, "the picture or a bar covers the button")
                self.screen.click(x + width // 2, y + height // 2)
                stage = program.window("Tavrix Full Screen View")
                wait_until(lambda: self.screen.active() == stage.id, "the keyboard on the stage")
                program.close()


class DropTest(ProgramTest):
    def test_a_web_address_is_told(self):
        program, window, _ = self.open(400, 350)
        source = DropSource(self.screen, [], addresses=["https://example.org/picture.jpg"])
        self.assertTrue(source.drop_on(window))
        box = program.message_box()
        self.assertEqual(box.text, "An unexpected error occurred while getting filename that was dropped here, unable to "
                                   "open file...")
        box.press("OK")
        self.end_by_escape(program)
