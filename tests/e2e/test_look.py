"""The program follows what its user has told the desktop of the looks of all programs: colours and movements."""

import unittest

from gi.repository import GLib

from driver import wait_until
from driver.portal import APPEARANCE, GNOME, Portal
from support import ProgramTest

_ANY, _DARK = 0, 1


def scheme(number):
    return {APPEARANCE: {"color-scheme": GLib.Variant("u", number)}}


class LookTest(ProgramTest):
    def with_portal(self, settings):
        portal = Portal(self.session.environment, settings)
        self.addCleanup(portal.close)
        return portal

    def ground(self, window):
        """The brightness of the menu bar beyond its menus, 0 to 255."""
        return sum(self.screen.grab().getpixel((window.x + window.width - 8, window.y + 6))) // 3

    def test_dark_is_taken(self):
        self.with_portal(scheme(_DARK))
        _, window, _ = self.open(700, 600)
        wait_until(lambda: self.ground(window) < 80, lambda: f"dark colours; {self.ground(window)}")

    def test_changes_are_followed(self):
        portal = self.with_portal(scheme(_DARK))
        _, window, _ = self.open(700, 600)
        wait_until(lambda: self.ground(window) < 80, lambda: f"dark colours; {self.ground(window)}")
        portal.change(APPEARANCE, "color-scheme", GLib.Variant("u", _ANY))
        wait_until(lambda: self.ground(window) > 180, lambda: f"light colours; {self.ground(window)}")
        portal.change(APPEARANCE, "color-scheme", GLib.Variant("u", _DARK))
        wait_until(lambda: self.ground(window) < 80, lambda: f"dark colours again; {self.ground(window)}")

    def test_without_a_wish_colours_are_light(self):
        portal = self.with_portal(scheme(_ANY))
        _, window, _ = self.open(700, 600)
        self.assertTrue(portal.asked.wait(15))
        self.assertGreater(self.ground(window), 180)

    def test_pictures_keep_their_colours(self):
        self.with_portal(scheme(_DARK))
        _, window, view = self.open(700, 600)  # which compares each pixel
        wait_until(lambda: self.ground(window) < 80, "dark colours")
        self.assertEqual((view.width, view.height), (700, 600))

    def about(self):
        program = self.start("ABOUT")
        window = program.window("About Tavrix")
        return lambda: self.screen.grab().crop((window.x, window.y, window.x + window.width, window.y + 200)).tobytes()

    def test_the_sea_rests_where_nothing_is_to_move(self):
        self.with_portal({GNOME: {"enable-animations": GLib.Variant("b", False)}})
        look = self.about()
        seen = []

        def same_for_long():
            seen.append(look())
            return len(seen) >= 40 and len(set(seen[-40:])) == 1
        wait_until(same_for_long, "the picture at rest")

    def test_the_sea_moves_otherwise(self):
        self.with_portal(scheme(_ANY))
        look = self.about()
        first = look()
        wait_until(lambda: look() != first, "the picture moving")


if __name__ == "__main__":
    unittest.main()
