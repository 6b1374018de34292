"""The editor of slide shows: a show that is made by mouse and keyboard, played, and saved."""

import os
import resource
import signal
import struct
import wave
from types import SimpleNamespace

from PIL import Image, ImageChops

from driver import drive_path, wait_until
from driver.drop import DropSource
from driver.waiting import LIMIT, NotInTime
from support import ProgramTest

_TITLE = "Tavrix - [Slide Show Editor]"
_VIEW_LIST = "[View List]  ---  Slide Show Images:"
_BACKGROUND = (64, 0, 0)
_COLOURS = {letter: (40 + 50 * (number % 4), 40 + 80 * (number // 4), 200 - 15 * number)
            for number, letter in enumerate("abcdefghijkl")}
_ENDINGS = {"c": "gif", "f": "gif", "j": "dib"}
_MADE = "dabclefgihjk"


class EditorProgramTest(ProgramTest):
    """Twelve slides, a to l. The last one lies where files from another program come from, the others in the folder of
    shows."""

    def setUp(self):
        super().setUp()
        self.home.write_settings("[Viewer]\nBackgroundColor=4\nSlideInterval=0\n")
        self.slides = os.path.join(self.home.program, "SLIDES")
        os.makedirs(self.slides)
        for letter, colour in _COLOURS.items():
            Image.new("RGB", (300, 200), colour).save(self.path(letter), "GIF" if letter in "cf" else "BMP")

    @staticmethod
    def name(letter):
        return f"{letter}.{_ENDINGS.get(letter, 'bmp')}"

    def path(self, letter):
        return os.path.join(self.home.pictures if letter == "l" else self.slides, self.name(letter))

    def open(self):
        program = self.start("SHOW")
        return program, self.dialog(program, _TITLE)

    def letters(self, editor):
        return [row.name.split("\\")[-1][0] for row in editor.find("list", _VIEW_LIST).children()]

    def expect_rows(self, editor, letters):
        wait_until(lambda: "".join(self.letters(editor)) == letters, lambda: f"{letters}; there are {self.letters(editor)}")

    def middle_of(self, thing):
        x, y, width, height = thing.extents
        return x + width // 2, y + height // 2

    def row(self, editor, name, letter):
        row = wait_until(lambda: next((r for r in editor.find("list", name).children()
                                       if r.name.split("\\")[-1] == self.name(letter)), None), f"the row of {letter}")
        x, y, _, height = row.extents
        return x + 15, y + height // 2

    def drop(self, program, editor, path):
        window = program.window(_TITLE)
        place = SimpleNamespace(id=window.id, centre=self.middle_of(editor.find("list", _VIEW_LIST)))
        self.assertTrue(DropSource(self.screen, [path]).drop_on(place))

    def make_show(self, program, editor):
        """A show of all slides, in the order of _MADE."""
        list_middle = self.middle_of(editor.find("list", _VIEW_LIST))
        self.screen.drag(self.row(editor, "Files:", "a"), list_middle)
        self.expect_rows(editor, "a")
        self.screen.click(*self.row(editor, "Files:", "b"))
        self.screen.click(*self.middle_of(editor.find("push button", "Add selected files")))
        self.expect_rows(editor, "ab")
        self.screen.click(*self.row(editor, "Files:", "d"))
        self.screen.press("Insert")
        self.expect_rows(editor, "abd")
        self.drop(program, editor, self.path("l"))
        self.expect_rows(editor, "abdl")
        # With a current slide the next comes behind it.
        self.screen.click(*self.row(editor, _VIEW_LIST, "b"))
        self.screen.click(*self.row(editor, "Files:", "c"))
        self.screen.press("Insert")
        self.expect_rows(editor, "abcdl")
        self.screen.click(*self.row(editor, _VIEW_LIST, "d"))
        self.screen.press("minus")
        self.expect_rows(editor, "abdcl")
        self.screen.press("F7")
        self.expect_rows(editor, "dabcl")
        # A slide is dragged away, and comes back by the keyboard.
        self.screen.drag(self.row(editor, _VIEW_LIST, "l"), self.row(editor, _VIEW_LIST, "a"))
        self.expect_rows(editor, "dlabc")
        self.screen.press("F8")
        self.expect_rows(editor, "dabcl")
        # Several at once come behind the current one.
        place = self.row(editor, "Files:", "e")
        self.screen.click(*place)
        self.screen.press("Shift+End")
        self.screen.drag(self.row(editor, "Files:", "k"), self.middle_of(editor.find("list", _VIEW_LIST)))
        self.expect_rows(editor, "dabclefghijk")
        self.screen.click(*self.row(editor, _VIEW_LIST, "h"))
        self.screen.press("plus")
        self.expect_rows(editor, _MADE)

    def stored_show(self):
        """What a save of that show holds in the folder of shows: what lies there is seen from there."""
        return [text for letter in _MADE
                for text in (drive_path(self.path(letter)) if letter == "l" else self.name(letter), "")]

    def save_made(self, program):
        self.screen.press("Alt+v")
        self.dialog(program, "Save - Tavrix Slide Show  (.tvs)")
        self.screen.press("Ctrl+a")
        self.screen.type("made")
        self.screen.press("Return")
        self.box(program, "About to save the slide show as:").press("Yes")
        self.expect_stored(os.path.join(self.slides, "made.tvs"), self.stored_show())
        self.wait_active(program)
        self.wait_idle(program)

    def wait_active(self, program):
        wait_until(lambda: self.screen.active() == program.window(_TITLE).id, "the editor with the keyboard")

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

    def show_file(self, *letters, paths=()):
        """A show of slides of ours, or of other files."""
        path = os.path.join(self.home.pictures, "show.tvs")
        lines = ['"Tavrix Slide Show"', '"Version 1.5"', "0", '""', "0", "0", "0", "0", "0", "0", "0", "0"]
        for letter in letters:
            lines += [f'"{drive_path(self.path(letter))}"', f'"about {letter}"']
        for slide in paths:
            lines += [f'"{drive_path(slide)}"', f'"about {os.path.basename(slide)}"']
        with open(path, "w", encoding="cp1252", newline="") as file:
            file.write("".join(line + "\r\n" for line in lines))
        return path

    def stored(self, path):
        with open(path, encoding="cp1252", newline="") as file:
            return [line.strip('"') for line in file.read().split("\r\n")[12:-1]]

    def expect_stored(self, path, lines, limit=LIMIT):
        wait_until(lambda: os.path.exists(path) and self.stored(path) == lines,
                   lambda: f"{lines[:40]} in {path}; it is {self.stored(path)[:40] if os.path.exists(path) else None}",
                   limit)

    def press_until_box(self, program, key):
        """The box that a key opens. A command that comes while another is still at work is ignored."""
        def look():
            self.screen.press(key)
            try:
                return program.message_box(limit=3)
            except NotInTime:
                return None
        return wait_until(look, f"a box by {key}", limit=60)

    def wait_idle(self, program):
        box = self.press_until_box(program, "Alt+s")
        box.press("No" if "No" in box.buttons else "OK")
        self.wait_active(program)

    def close_editor(self, program):
        self.screen.press("Escape")
        program.main()
        self.assertNotIn(_TITLE, program.titles())


class EditorTest(EditorProgramTest):
    def test_a_show_is_made_by_mouse_and_keyboard_and_played(self):
        program, editor = self.open()
        self.assertNotIn("Tavrix", program.titles())
        self.make_show(program, editor)
        self.screen.press("Alt+h")
        for letter in _MADE:
            self.shows(letter)
            self.screen.press("Right")
        self.shows(_MADE[0])
        self.screen.press("Escape")
        self.wait_active(program)
        self.screen.press("Escape")
        question = self.dialog(program, "Tavrix - [Changes Made]")
        question.find("push button", "Cancel").act()
        self.wait_active(program)
        self.screen.press("Alt+c")
        self.dialog(program, "Tavrix - [Changes Made]").find("push button", "Discard").act()
        program.main()
        self.assertNotIn(_TITLE, program.titles())
        self.end_by_escape(program)

    def test_a_show_is_saved_closed_loaded_by_the_recent_list_and_played(self):
        program, editor = self.open()
        self.make_show(program, editor)
        self.save_made(program)
        self.close_editor(program)
        program.menu_entry("Slide Show", "Load Slide Show").act()
        self.dialog(program, "Load - Tavrix Slide Show  (.tvs)").find("push button", "Recent...").act()
        self.dialog(program, "Load Slide Show - [Recent Files]")
        self.screen.press("Return")
        editor = self.dialog(program, _TITLE)
        self.expect_rows(editor, _MADE)
        self.screen.press("Alt+h")
        for letter in _MADE + _MADE[0]:
            self.shows(letter)
            self.screen.press("Right")
        self.shows(_MADE[1])
        self.screen.press("Escape")
        self.wait_active(program)
        self.close_editor(program)
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
        self.wait_active(program)
        self.wait_idle(program)
        self.close_editor(program)
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
        self.wait_idle(program)
        if os.path.isfile(path):
            self.assertEqual(self.stored(path), before)
        self.screen.press("Escape")
        self.dialog(program, "Tavrix - [Changes Made]").find("push button", "Discard").act()
        program.main()
        self.end_by_escape(program)

    def test_a_save_that_the_system_ends_keeps_editor_and_file(self):
        program, editor = self.open()
        path = self.show_file("c", "a", "b")
        self.drop(program, editor, path)
        self.expect_rows(editor, "cab")
        self.screen.click(*self.row(editor, _VIEW_LIST, "c"))
        self.screen.press("plus")
        self.expect_rows(editor, "acb")
        before = self.stored(path)
        # No file of this process may grow beyond a few bytes, as on a disk that is full.
        _, most = resource.prlimit(program.process.pid, resource.RLIMIT_FSIZE)
        resource.prlimit(program.process.pid, resource.RLIMIT_FSIZE, (16, most))
        self.screen.press("Escape")
        self.dialog(program, "Tavrix - [Changes Made]").find("push button", "Save").act()
        self.box(program, "About to update the slide show file:").press("Yes")
        self.box(program, "An error occurred while trying to write the slide show header.").press("OK")
        self.expect_rows(editor, "acb")
        self.wait_active(program)
        self.wait_idle(program)
        self.assertEqual(self.stored(path), before)
        self.screen.press("Escape")
        question = self.dialog(program, "Tavrix - [Changes Made]")
        resource.prlimit(program.process.pid, resource.RLIMIT_FSIZE, (most, most))
        question.find("push button", "Save").act()
        self.box(program, "About to update the slide show file:").press("Yes")
        program.main()
        self.assertNotIn(_TITLE, program.titles())
        self.assertEqual(self.stored(path), [before[2], before[3], before[0], before[1], before[4], before[5]])
        self.end_by_escape(program)

    def test_a_save_as_that_is_canceled_midway_leaves_the_show_for_a_save(self):
        many = os.path.join(self.home.pictures, "many")
        shows = os.path.join(self.home.pictures, "shows")
        os.mkdir(many)
        os.mkdir(shows)
        names = [f"{number}.bmp" for number in range(600)]
        for name in names:
            with open(os.path.join(many, name), "wb") as file:
                file.write(name.encode())
        path = os.path.join(shows, "first.tvs")
        os.rename(self.show_file(paths=[os.path.join(many, name) for name in names]), path)
        former = self.stored(path)
        self.home.write_settings("[Viewer]\nBackgroundColor=4\nSlideInterval=0\nSaveSlides=True\n")
        program, editor = self.open()
        self.drop(program, editor, path)
        wait_until(lambda: editor.find("label", "600 slides (images) total..."), "the show")
        # One slide is moved, so that there is something to save.
        view_list = editor.find("list", _VIEW_LIST)
        x, y, _, _ = view_list.extents
        self.screen.click(x + 15, y + 8)
        self.screen.press("plus")
        wait_until(lambda: view_list.children()[0].name.endswith("\\1.bmp"), "the second slide at the top")
        self.screen.press("Alt+v")
        self.dialog(program, "Save - Tavrix Slide Show  (.tvs)")
        self.screen.press("Ctrl+a")
        self.screen.type("second")
        self.screen.press("Return")
        self.box(program, "About to save the slide show as:").press("Yes")
        self.box(program, "Save a copy of all images").press("Yes")
        wait = self.wait_box(program)
        # The program stands still until the key is there, so that it is not through before.
        program.process.send_signal(signal.SIGSTOP)
        copied = len(os.listdir(shows))
        self.screen.press("Escape")
        program.process.send_signal(signal.SIGCONT)
        self.box(program, "Save was canceled before it could complete, slide show file may be corrupt").press("OK")
        self.assertNotIn(wait, [window.id for window in program.windows()])
        self.assertLess(copied, 600)
        self.assertLess(len(os.listdir(shows)), 600)
        self.wait_active(program)
        self.assertEqual(self.stored(path), former)
        self.assertEqual(view_list.children()[0].name, drive_path(os.path.join(many, "1.bmp")))
        box = self.press_until_box(program, "Alt+s")
        self.assertIn("About to update the slide show file:", box.text)
        self.assertIn(drive_path(path), box.text)
        box.press("Yes")
        order = ["1.bmp", "0.bmp", *names[2:]]
        self.expect_stored(path, [text for name in order for text in (name, f"about {name}")], limit=60)
        for name in names:
            with open(os.path.join(shows, name), "rb") as file:
                self.assertEqual(file.read(), name.encode())
        self.wait_active(program)
        self.wait_idle(program)
        self.close_editor(program)
        self.end_by_escape(program)

    def wait_box(self, program):
        """The number of the wait window, once it has the keyboard."""
        def look():
            mine = {window.id: window.title for window in program.windows()}
            active = self.screen.active()
            return active if mine.get(active, _TITLE).startswith("Copying files") else None
        return program.wait(look, lambda: f"the wait window; there are {program.titles()}")

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


class SoundsTest(EditorProgramTest):
    """What is played goes to a file in the place of a sound device."""

    def heard(self):
        with open(self.played, "rb") as file:
            return file.read()

    def device_is_open(self):
        """The device writes silence too, as long as it is open."""
        folder = f"/proc/{self.program.process.pid}/fd"
        for number in os.listdir(folder):
            try:
                if os.readlink(os.path.join(folder, number)) == self.played:
                    return True
            except OSError:
                continue
        return False

    def test_a_sound_is_tried_and_ends_with_its_window(self):
        self.played = os.path.join(os.path.realpath(self.home.folder), "played")
        samples = b"".join(struct.pack("<hh", 1 + i, -1 - i) for i in range(30_000)) * 60
        with wave.open(os.path.join(self.home.pictures, "tune.wav"), "wb") as file:
            file.setnchannels(2)
            file.setsampwidth(2)
            file.setframerate(44100)
            file.writeframes(samples)
        self.home.write_settings("[Viewer]\nSoundMode=1\nSoundFile="
                                 + drive_path(os.path.join(self.home.pictures, "tune.wav")) + "\n")
        self.program = program = self.start("SHOW", environment={
            "SDL_AUDIODRIVER": "disk", "SDL_DISKAUDIOFILE": self.played, "SDL_DISKAUDIODELAY": "2"})
        self.dialog(program, _TITLE)
        self.screen.press("Alt+o")
        self.dialog(program, "Slide Show Options")
        self.screen.press("Alt+b")
        browse = self.dialog(program, "Select Sound File")
        for end, back in (("Alt+s", "Select Sound File"), ("Escape", "Slide Show Options")):
            self.screen.press("Alt+p")
            browse.find("push button", "Stop...")
            wait_until(lambda: os.path.exists(self.played) and len(self.heard().strip(b"\0")) > 100_000, "the sound")
            self.screen.press(end)
            wait_until(lambda: self.screen.active() == program.window(back).id, back)
            wait_until(lambda: not self.device_is_open(), "the end of the sound")
            heard = self.heard().lstrip(b"\0")
            self.assertLess(len(heard), len(samples), "it was not through")
            # No gap, and nothing but silence at the end.
            sound = heard.rstrip(b"\0")
            self.assertEqual(sound[:len(sound) // 4 * 4], samples[:len(sound) // 4 * 4])
            os.remove(self.played)
        self.screen.press("Escape")
        self.wait_active(program)
        self.close_editor(program)
        self.end_by_escape(program)


class SmallScreenTest(EditorProgramTest):
    session_options = {"size": (1024, 768)}

    def expect_inside(self, window):
        self.assertGreaterEqual(min(window.x, window.y), 0, window)
        self.assertLessEqual(window.x + window.width, self.screen.width, window)
        self.assertLessEqual(window.y + window.height, self.screen.height, window)

    def look_at(self, program, title, *keys):
        """A dialog that keys open, and Escape closes."""
        self.screen.press(*keys)
        self.dialog(program, title)
        self.expect_inside(program.window(title))
        self.screen.press("Escape")
        self.wait_active(program)

    def test_the_editor_fits_and_is_usable(self):
        program, editor = self.open()
        window = program.window(_TITLE)
        self.expect_inside(window)
        controls = [*editor.all("push button"), *editor.all("list"), *editor.all("combo box")]
        self.assertGreater(len(controls), 18)

        def is_inside(control):  # once the window manager's frame is around it all
            window = program.window(_TITLE)
            x, y, width, height = control.extents
            return (window.x <= x and x + width <= window.x + window.width and
                    window.y <= y and y + height <= window.y + window.height)
        for control in controls:
            wait_until(lambda control=control: is_inside(control), f"{control} inside")
        self.make_show(program, editor)
        self.look_at(program, "Slide Show Options", "Alt+o")
        self.screen.click(*self.row(editor, _VIEW_LIST, "a"))
        self.look_at(program, "Edit Slide Descriptions", "F3")
        self.look_at(program, "Rename Slide Show", "Shift+F3")
        self.look_at(program, "Delete Slide Show", "Shift+Delete")
        self.save_made(program)
        self.look_at(program, "Load - Tavrix Slide Show  (.tvs)", "Alt+l")
        self.screen.press("Alt+h")
        for letter in _MADE:
            self.shows(letter)
            self.screen.press("Right")
        self.screen.press("Escape")
        self.wait_active(program)
        self.close_editor(program)
        self.end_by_escape(program)
