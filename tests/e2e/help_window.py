"""The help window, for the tests that look at it."""

from driver import wait_until

HELP = "Tavrix Help"


class HelpWindow:
    """What a test can do with the help window of a program."""

    def help_window(self, program):
        window = program.window(HELP)
        top = wait_until(lambda: next((top for top in program.root().children() if top.name == HELP
                                       and top.has("showing")), None), "the help window on the accessibility bus")
        return window, top

    def page(self, top):
        """The title of the page that is turned up."""
        return next((item.name for item in top.find("tree", "Pages").children() if item.has("selected")), None)

    def wait_page(self, top, title):
        wait_until(lambda: self.page(top) == title, lambda: f"the page {title!r}; it is {self.page(top)!r}")

    def press_in(self, window, *keys):
        self.screen.activate(window)
        wait_until(lambda: self.screen.active() == window.id, "the active window")
        self.screen.press(*keys)

    def close_help(self, program, window):
        self.press_in(window, "Escape")
        wait_until(lambda: HELP not in program.titles(), "the help window's end")
