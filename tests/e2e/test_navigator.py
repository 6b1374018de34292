"""The navigator of a slide show above its stage, under two window managers, however slow they are."""

import time

from driver import wait_unchanged
from driver.drop import DropSource
from test_show import StageTest

_STARTS = 20
_STANDSTILL = 1.5  # seconds
_TITLE = "Tavrix - [Navigator]"
_PLACE = 40, 60  # of the frame's corner


class NavigatorTest(StageTest):
    def show(self, settings="", place=_PLACE):
        """A running show with its navigator."""
        if not hasattr(self, "file"):
            self.pictures()
            self.file = self.show_file("small.bmp", "beside.bmp")
        x, y = place
        self.home.write_settings(f"[Viewer]\nBackgroundColor=4\nShowToolbar=TRUE\nToolbarX={x * 15}\n"
                                 f"ToolbarY={y * 15}\n{settings}")
        return self.start(self.file)

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
        for settings in ("ShowFilenames=TRUE\nShowDescription=FALSE\n", "ShowFilenames=FALSE\nShowDescription=TRUE\n"):
            for standstill in (0, _STANDSTILL):
                with self.subTest(settings=settings, standstill=standstill):
                    with self.screen.window_manager_standing_still():
                        program = self.show(settings, corner)
                        time.sleep(standstill)
                    self.expect_above(program, corner)
                    self.end(program)


class PlaceTest(NavigatorTest):
    def test_the_place_of_the_navigator_does_not_drift_from_show_to_show(self):
        path, _ = self.picture(300, 200)
        file = self.show_file("picture.bmp")
        self.home.write_settings("[Viewer]\nAutosizeWindow=FALSE\nShowToolbar=TRUE\nShowFilenames=TRUE\n"
                                 f"ShowDescription=FALSE\nToolbarX={_PLACE[0] * 15}\nToolbarY={_PLACE[1] * 15}\n")
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


class MetacityPlaceTest(PlaceTest):
    session_options = {"window_manager": "metacity"}


class MetacityStackingTest(StackingTest):
    session_options = {"window_manager": "metacity"}


del StageTest, NavigatorTest  # the names of other files' tests, and of what has no tests of its own
