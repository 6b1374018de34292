"""The navigator of a slide show above its stage, under two window managers, however slow they are."""

import os
import time

from driver import wait_unchanged, wait_until
from driver.drop import DropSource
from test_show import StageTest

_STARTS = 20
_STANDSTILL = 1.5  # seconds
_TITLE = "Tavrix - [Navigator]"
_PLACE = 40, 60  # of the frame's corner


class NavigatorTest(StageTest):
    def show_of(self, slides, names=True, descriptions=True):
        """The file of a show of these slides and their descriptions; what the navigator tells is an option of it."""
        lines = ['"Tavrix Slide Show"', '"Version 1.5"', "0", '""', "0", "0", "0", "0", str(-int(names)),
                 str(-int(descriptions)), "0", "0"]
        for slide, description in slides:
            lines += [f'"{slide}"', f'"{description}"']
        path = os.path.join(self.home.pictures, "show.tvs")
        with open(path, "w", encoding="utf-8", newline="") as file:
            file.write("".join(line + "\r\n" for line in lines))
        return path

    def show(self, place=_PLACE, file=None, **options):
        """A running show with its navigator."""
        self.picture(300, 200, "small.bmp")
        x, y = place
        self.home.write_settings("[Viewer]\nBackgroundColor=4\nShowToolbar=TRUE\n"
                                 f"ToolbarX={x * 15}\nToolbarY={y * 15}\n")
        return self.start(file or self.show_of([("small.bmp", ""), ("small.bmp", "")]), **options)

    def at_rest(self, program):
        """The stage and its navigator, once nothing moves any more: their order from below, who has the keyboard, and
        the corner of the navigator's frame."""
        def look():
            windows = {w.title: w for w in program.windows() if not w.popup}
            navigator = windows.get(_TITLE)
            if navigator is None or "Tavrix Full Screen View" not in windows:
                return None
            left, _, top, _ = self.screen.frame(navigator)
            active = next((w.title for w in windows.values() if w.id == self.screen.active()), None)
            return list(windows), active, (navigator.x - left, navigator.y - top), top
        program.wait(lambda: (look() or [None] * 4)[3], "the framed navigator")
        order, active, corner, _ = wait_unchanged(look, "the stage and its navigator")
        return order, active, corner

    def expect_above(self, program, place=_PLACE):
        self.assertEqual(self.at_rest(program), (["Tavrix Full Screen View", _TITLE], "Tavrix Full Screen View", place))

    def end(self, program):
        self.screen.press("Escape")
        self.assertEqual(program.wait_end(), 0)


class StackingTest(NavigatorTest):
    def test_the_navigator_is_above_the_stage_at_each_of_twenty_starts(self):
        for number in range(_STARTS):
            with self.subTest(start=number):
                program = self.show()
                self.expect_above(program)
                self.end(program)

    def test_the_navigator_is_above_the_stage_where_the_window_manager_stood_still(self):
        for number in range(5):
            with self.subTest(start=number):
                with self.screen.window_manager_standing_still():
                    program = self.show()
                    time.sleep(_STANDSTILL)
                self.expect_above(program)
                self.end(program)

    def test_a_navigator_of_another_height_keeps_its_frame_on_the_screen(self):
        corner = 0, 0
        self.picture(300, 200, "small.bmp")
        for names, descriptions in ((True, False), (False, True), (False, False)):
            for standstill in (0, _STANDSTILL):
                with self.subTest(names=names, descriptions=descriptions, standstill=standstill):
                    file = self.show_of([("small.bmp", "")], names, descriptions)
                    with self.screen.window_manager_standing_still():
                        program = self.show(corner, file)
                        time.sleep(standstill)
                    self.expect_above(program, corner)
                    self.end(program)


class PlaceTest(NavigatorTest):
    def test_the_place_of_the_navigator_does_not_drift_from_show_to_show(self):
        path, _ = self.picture(300, 200)
        file = self.show_of([("picture.bmp", "")], descriptions=False)
        self.home.write_settings("[Viewer]\nAutosizeWindow=FALSE\nShowToolbar=TRUE\n"
                                 f"ToolbarX={_PLACE[0] * 15}\nToolbarY={_PLACE[1] * 15}\n")
        for standstill in (0, _STANDSTILL):
            program = self.start(path)
            main = program.main(path)
            with self.screen.window_manager_standing_still():
                self.assertTrue(DropSource(self.screen, [file]).drop_on(main))
                time.sleep(standstill)
            self.assertEqual(self.at_rest(program)[2], _PLACE)
            self.screen.press("Escape")
            program.wait(lambda: self.screen.active() == main.id, "the keyboard on the main view")
            self.end_by_escape(program)
            self.assertEqual((self.home.setting("ToolbarX"), self.home.setting("ToolbarY")),
                             (str(_PLACE[0] * 15), str(_PLACE[1] * 15)))

    def test_a_window_that_grows_before_it_is_framed_stays_where_it_is(self):
        path, _ = self.picture(300, 200)
        larger, _ = self.picture(600, 500, "larger.bmp")
        with self.screen.window_manager_standing_still():
            program = self.start(path)
            main = program.wait(lambda: next((w for w in self.screen.unmapped() if w.pid == program.process.pid
                                              and w.title.endswith("picture.bmp]")), None), "the main view")
            self.assertTrue(DropSource(self.screen, [larger]).drop_on(main))
            program.wait(lambda: any(w.title.endswith("larger.bmp]") for w in self.screen.unmapped()),
                         "the larger main view")
        window = program.main(larger)
        left, _, top, _ = self.screen.frame(window)
        self.assertGreater(top, 0)
        self.assertGreater(window.width, main.width)
        self.assertEqual((window.x - left, window.y - top), (0, 0))


class TextTest(NavigatorTest):
    """Texts end in blocks, which are found on the screen only where the last letter is painted."""

    def test_the_end_of_a_path_and_a_long_description_are_painted(self):
        _, small = self.picture(300, 200, "small.bmp")
        name = "What a long name a picture may have, a b c d e \u2588\u2588\u2588\u2588.bmp"
        small.save(os.path.join(self.home.pictures, name))
        description = ("It tells of what is to be seen here. " * 6)[:196] + "\u2588" * 4
        self.assertEqual(len(description), 200)
        for scale in (1, 1.5):
            for points in (9, 14):
                for names, descriptions in ((True, True), (True, False), (False, True)):
                    with self.subTest(scale=scale, points=points, names=names, descriptions=descriptions):
                        file = self.show_of([(name, description)], names, descriptions)
                        lines = [(27, 49)] * names + [(50 if names else 27, 124)] * descriptions
                        self.paints(file, scale, points, lines)

    def paints(self, file, scale, points, lines):
        """Plays a show on a desktop with a font of so many points; each of the lines, as pixels from the top at a
        scale of 1, holds its last letters."""
        os.makedirs(os.path.join(self.home.folder, ".config"), exist_ok=True)
        with open(os.path.join(self.home.folder, ".config", "kdeglobals"), "w", encoding="utf-8") as settings:
            settings.write(f"[General]\nfont=DejaVu Sans,{points},-1,5,50,0,0,0,0,0\n")
        program = self.show((400, 600), file, environment={
            "QT_SCALE_FACTOR": str(scale), "XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"})
        self.at_rest(program)
        navigator = program.window(_TITLE)
        for top, bottom in lines:
            bottom = min(round(bottom * scale), navigator.height)
            place = navigator.x, navigator.y + round(top * scale), navigator.width, bottom - round(top * scale)
            wait_until(lambda: self.holds_block(self.screen.grab(*place)), f"the last letters from {top} on", 5)
        self.end(program)

    @staticmethod
    def holds_block(image):
        """Whether dark pixels fill a box as only full blocks of four letters do."""
        width, height, least = 12, 5, 90
        dark = image.convert("L").point(lambda value: value < least)
        pixels = dark.load()
        return any(all(pixels[x + i, y + j] for i in range(width) for j in range(height))
                   for y in range(dark.height - height) for x in range(dark.width - width))


class MetacityPlaceTest(PlaceTest):
    session_options = {"window_manager": "metacity"}


class MetacityStackingTest(StackingTest):
    session_options = {"window_manager": "metacity"}


del StageTest, NavigatorTest  # the names of other files' tests, and of what has no tests of its own
