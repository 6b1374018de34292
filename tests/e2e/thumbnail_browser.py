"""What tests do to the thumbnail browser."""

from driver import wait_until
from driver.accessibility import Gone

BROWSER = "Tavrix - [Thumbnail Browser]"
FOLDER_DIALOG = "Thumbnail Browser - [Select Folder to Browse]"
FILES_DIALOG = "Thumbnail Browser - [Select Files]"


class ThumbnailBrowser:
    """For a test of programs, whose pictures have `names` in their order, each with a hyphen."""

    def browse(self, settings="", rests=True):
        """The program with the browser on the folder of pictures."""
        self.home.write_settings("[Viewer]\nStartupDialog=0\n" + settings)
        program = self.start(folder=self.home.pictures)
        program.main()
        return program, self.open_browser(program, rests)

    def open_browser(self, program, rests=True):
        """The browser on the folder that its dialog has at first."""
        program.menu_entry("File", "Thumbnails", "Browse Folder").act()
        self.dialog(program, FOLDER_DIALOG)
        self.screen.press("Return")
        return self.browser(program, rests)

    def browser(self, program, rests=True):
        """The browser; with boxes about its pictures above it, it does not rest."""
        window = program.window(BROWSER)
        if rests:
            wait_until(lambda: self.screen.active() == window.id, "the browser becoming active")
        return program.wait(lambda: next((top for top in program.root().children() if top.name == BROWSER), None),
                            BROWSER)

    def labels(self, browser):
        return [label.text for label in browser.all("label")]

    def wait_labels(self, browser, *wanted):
        wait_until(lambda: set(wanted) <= set(self.labels(browser)),
                   lambda: f"{wanted}; there are {self.labels(browser)}")

    def wait_page(self, browser, first, last):
        """Waits until a page stands, and for the thumbnails of its images."""
        wanted = f"{first} to {last}" if first != last else str(first)
        self.wait_labels(browser, wanted)
        shown = self.thumbnails(browser)
        self.assertEqual([graphic.name for graphic in shown], self.names[first - 1:last])
        return shown

    def thumbnails(self, browser):
        return [graphic for graphic in browser.all("graphic") if "-" in graphic.name]

    def colours(self, graphic):
        x, y, width, height = graphic.extents
        return len(self.screen.grab(x, y, width, height).convert("RGB").getcolors(1 << 24))

    def is_seen(self, browser, index):
        try:
            return self.colours(self.thumbnails(browser)[index]) > 1
        except (Gone, IndexError):  # the page is just made
            return False

    def point_at(self, graphic):
        x, y, width, height = graphic.extents
        self.screen.move_pointer(x + width // 2 - 1, y + height // 2)
        self.screen.move_pointer(x + width // 2, y + height // 2)

    def click(self, graphic, button=1):
        x, y, width, height = graphic.extents
        self.screen.click(x + width // 2, y + height // 2, button=button)
