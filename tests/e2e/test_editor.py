"""The editor of slide shows: a show that is made by mouse and keyboard, played, and saved."""

import os
import signal
from types import SimpleNamespace

from PIL import Image, ImageChops

from driver import drive_path, wait_until
from driver.drop import DropSource
from support import ProgramTest

_TITLE = "Tavrix - [Slide Show Editor]"
_VIEW_LIST = "[View List]  ---  Slide Show Images:"
_BACKGROUND = (64, 0, 0)
_COLOURS = {"a": (200, 30, 30), "b": (30, 200, 30), "c": (30, 30, 200), "d": (200, 200, 30), "e": (30, 200, 200)}


class EditorTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.home.write_settings("[Viewer]\nBackgroundColor=4\nSlideInterval=0\n")
        self.slides = os.path.join(self.home.program, "SLIDES")
        os.makedirs(self.slides)
        for letter, colour in _COLOURS.items():
            Image.new("RGB", (300, 200), colour).save(self.path(letter))

    def path(self, letter):
        """Files that come from another program lie elsewhere."""
        return os.path.join(self.home.pictures if letter == "e" else self.slides, letter + ".bmp")

    def open(self):
        program = self.start("SHOW")
        return program, self.dialog(program, _TITLE)

    def rows(self, editor):
        return [row.name.split("\\")[-1][0] for row in editor.find("list", _VIEW_LIST).children()]

    def expect_rows(self, editor, letters):
        wait_until(lambda: "".join(self.rows(editor)) == letters, lambda: f"{letters}; there are {self.rows(editor)}")

    def middle_of(self, thing):
        x, y, width, height = thing.extents
        return x + width // 2, y + height // 2

    def row(self, editor, name, letter):
        row = wait_until(lambda: next((r for r in editor.find("list", name).children()
                                       if r.name.split("\\")[-1] == letter + ".bmp"), None), f"the row of {letter}")
        x, y, _, height = row.extents
        return x + 15, y + height // 2

    def drop(self, program, editor, path):
        window = program.window(_TITLE)
        place = SimpleNamespace(id=window.id, centre=self.middle_of(editor.find("list", _VIEW_LIST)))
        self.assertTrue(DropSource(self.screen, [path]).drop_on(place))

    def make_show(self, program, editor):
        """A show of the slides d, a, b, c and e, in this order."""
        list_middle = self.middle_of(editor.find("list", _VIEW_LIST))
        self.screen.drag(self.row(editor, "Files:", "a"), list_middle)
        self.expect_rows(editor, "a")
        self.screen.click(*self.row(editor, "Files:", "b"))
        self.screen.click(*self.middle_of(editor.find("push button", "Add selected files")))
        self.expect_rows(editor, "ab")
        self.screen.click(*self.row(editor, "Files:", "d"))
        self.screen.press("Insert")
        self.expect_rows(editor, "abd")
        self.drop(program, editor, self.path("e"))
        self.expect_rows(editor, "abde")
        # With a current slide the next comes behind it.
        self.screen.click(*self.row(editor, _VIEW_LIST, "b"))
        self.screen.click(*self.row(editor, "Files:", "c"))
        self.screen.press("Insert")
        self.expect_rows(editor, "abcde")
        self.screen.click(*self.row(editor, _VIEW_LIST, "d"))
        self.screen.press("minus")
        self.expect_rows(editor, "abdce")
        self.screen.press("F7")
        self.expect_rows(editor, "dabce")
        # A slide is dragged away, and comes back by the keyboard.
        self.screen.drag(self.row(editor, _VIEW_LIST, "e"), self.row(editor, _VIEW_LIST, "a"))
        self.expect_rows(editor, "deabc")
        self.screen.press("F8")
        self.expect_rows(editor, "dabce")

    def box(self, program, beginning):
        """The message box with this text; the question about changes looks like one."""
        return wait_until(lambda: next((box for box in [program.message_box()] if box.text.startswith(beginning)), None),
                          f"the box {beginning!r}")

    def shows(self, letter):
        screen = Image.new("RGB", (self.screen.width, self.screen.height), _BACKGROUND)
        screen.paste(_COLOURS[letter], (screen.width // 2 - 150, screen.height // 2 - 100,
                                        screen.width // 2 + 150, screen.height // 2 + 100))
        wait_until(lambda: ImageChops.difference(self.screen.grab(), screen).getbbox() is None,
                   f"the slide {letter} alone on the screen")

    def show_file(self, *letters):
        path = os.path.join(self.home.pictures, "show.tvs")
        lines = ['"Tavrix Slide Show"', '"Version 1.5"', "0", '""', "0", "0", "0", "0", "0", "0", "0", "0"]
        for letter in letters:
            lines += [f'"{drive_path(self.path(letter))}"', f'"about {letter}"']
        with open(path, "w", encoding="cp1252", newline="") as file:
            file.write("".join(line + "\r\n" for line in lines))
        return path

    def stored(self, path):
        with open(path, encoding="cp1252", newline="") as file:
            return [line.strip('"') for line in file.read().split("\r\n")[12:-1]]

    def expect_stored(self, path, lines):
        wait_until(lambda: os.path.exists(path) and self.stored(path) == lines,
                   lambda: f"{lines} in {path}; it is {self.stored(path) if os.path.exists(path) else None}")

    def test_a_show_is_made_by_mouse_and_keyboard_and_played(self):
        program, editor = self.open()
        self.assertNotIn("Tavrix", program.titles())
        self.make_show(program, editor)
        self.screen.press("Alt+h")
        for letter in "dabce":
            self.shows(letter)
            self.screen.press("Right")
        self.shows("d")
        self.screen.press("Escape")
        wait_until(lambda: self.screen.active() == program.window(_TITLE).id, "the editor after the show")
        self.screen.press("Escape")
        question = self.dialog(program, "Tavrix - [Changes Made]")
        question.find("push button", "Cancel").act()
        wait_until(lambda: self.screen.active() == program.window(_TITLE).id, "the editor after Cancel")
        self.screen.press("Alt+c")
        self.dialog(program, "Tavrix - [Changes Made]").find("push button", "Discard").act()
        program.main()
        self.assertNotIn(_TITLE, program.titles())
        self.end_by_escape(program)

    def test_a_show_is_saved_closed_loaded_by_the_recent_list_and_played(self):
        program, editor = self.open()
        self.make_show(program, editor)
        self.screen.press("Alt+v")
        self.dialog(program, "Save - Tavrix Slide Show  (.tvs)")
        self.screen.press("Ctrl+a")
        self.screen.type("made")
        self.screen.press("Return")
        path = os.path.join(self.slides, "made.tvs")
        self.box(program, "About to save the slide show as:").press("Yes")
        # What lies in the folder of the show is seen from there.
        self.expect_stored(path, [text for letter in "dabc" for text in (letter + ".bmp", "")] +
                           [drive_path(self.path("e")), ""])
        wait_until(lambda: self.screen.active() == program.window(_TITLE).id, "the editor after the save")
        self.screen.press("Escape")
        program.main()
        program.menu_entry("Slide Show", "Load Slide Show").act()
        self.dialog(program, "Load - Tavrix Slide Show  (.tvs)").find("push button", "Recent...").act()
        self.dialog(program, "Load Slide Show - [Recent Files]")
        self.screen.press("Return")
        editor = self.dialog(program, _TITLE)
        self.expect_rows(editor, "dabce")
        self.screen.press("Alt+h")
        for letter in "dabced":
            self.shows(letter)
            self.screen.press("Right")
        self.shows("a")
        self.screen.press("Escape")
        wait_until(lambda: self.screen.active() == program.window(_TITLE).id, "the editor after the show")
        self.screen.press("Escape")
        program.main()
        self.end_by_escape(program)

    def test_a_dropped_show_is_changed_and_saved(self):
        program, editor = self.open()
        path = self.show_file("c", "a", "b")
        self.drop(program, editor, path)
        self.expect_rows(editor, "cab")
        self.screen.click(*self.row(editor, _VIEW_LIST, "c"))
        self.screen.press("F8")
        self.expect_rows(editor, "abc")
        self.screen.press("asciitilde")
        self.expect_rows(editor, "cba")
        self.screen.press("Alt+s")
        box = program.message_box()
        self.assertIn(drive_path(path), box.text)
        box.press("Yes")
        self.expect_stored(path, [text for letter in "cba" for text in
                                  (drive_path(self.path(letter)), "about " + letter)])
        wait_until(lambda: self.screen.active() == program.window(_TITLE).id, "the editor after the save")
        self.screen.press("Escape")
        program.main()
        self.end_by_escape(program)

    def test_a_save_that_fails_keeps_the_editor(self):
        program, editor = self.open()
        path = self.show_file("c", "a")
        self.drop(program, editor, path)
        self.expect_rows(editor, "ca")
        self.screen.click(*self.row(editor, _VIEW_LIST, "c"))
        self.screen.press("plus")
        self.expect_rows(editor, "ac")
        before = self.stored(path)
        os.chmod(path, 0o400)
        os.chmod(self.home.pictures, 0o500)
        self.addCleanup(os.chmod, self.home.pictures, 0o700)
        if os.access(self.home.pictures, os.W_OK):
            # The superuser may write anything: a folder stands where the file is to be.
            os.remove(path)
            os.makedirs(os.path.join(path, "full"))
        self.screen.press("Escape")
        self.dialog(program, "Tavrix - [Changes Made]").find("push button", "Save").act()
        self.box(program, "About to update the slide show file:").press("Yes")
        self.box(program, "Unable to save slide show.").press("OK")
        self.expect_rows(editor, "ac")
        wait_until(lambda: self.screen.active() == program.window(_TITLE).id, "the editor after the failure")
        if os.path.isfile(path):
            self.assertEqual(self.stored(path), before)
        self.screen.press("Escape")
        self.dialog(program, "Tavrix - [Changes Made]").find("push button", "Discard").act()
        program.main()
        self.end_by_escape(program)

    def test_a_signal_keeps_the_changes_beside_the_settings(self):
        program, editor = self.open()
        self.screen.click(*self.row(editor, "Files:", "b"))
        self.screen.press("Insert")
        self.expect_rows(editor, "b")
        program.process.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait_end(), 0)
        kept = os.path.join(self.home.program, "Unsaved Untitled.tvs")
        self.assertEqual(self.stored(kept), [drive_path(self.path("b")), ""])
        self.assertIsNotNone(self.home.setting("QualityJPG"))

    def test_both_menus_open_by_mouse_and_keyboard(self):
        program, editor = self.open()
        for name in ("Files:", _VIEW_LIST):
            place = self.middle_of(editor.find("list", name))
            self.screen.click(*place)
            for opening in (lambda: self.screen.click(*place, button=3), lambda: self.screen.press("Menu"),
                            lambda: self.screen.press("Shift+F10")):
                opening()
                wait_until(program.popups, f"the menu of {name}")
                self.screen.press("Escape")
                wait_until(lambda: not program.popups(), "the end of the menu")
        self.screen.press("Escape")
        program.main()
        self.end_by_escape(program)

