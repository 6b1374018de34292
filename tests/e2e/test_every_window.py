"""Every window that the menu opens, as somebody goes through it by the keyboard: F1 and the Help button show the page that
tells about that window, and Escape leads back."""

import os

from driver import wait_until
from help_window import HelpWindow
from support import ProgramTest

# The keys from the main view, the window, and its page. Letters are those that the menus underline.
FILE = [
    (("Alt+f", "n"), "New Image", "A new image"),
    (("Alt+f", "o"), "Open Image", "Opening images"),
    (("Alt+f", "i", "f"), "Find Image(s)", "Finding images"),
    (("Alt+f", "i", "s"), "Search For Duplicate Files", "Files of like names"),
    (("Alt+f", "t", "b"), "Thumbnail Browser - [Select Folder to Browse]", "Thumbnails of a folder"),
    (("Alt+f", "t", "s"), "Thumbnail Browser - [Select Files]", "Thumbnails of some files"),
    (("Alt+f", "m", "a"), "Import TGA Image File", "Importing"),
    (("Alt+f", "m", "x"), "Import PCX Image File", "Importing"),
    (("Alt+f", "m", "p"), "Import Color Palette", "Importing"),
    (("Alt+f", "e", "s"), "Set Desktop Wallpaper", "The desktop: capture and wallpaper"),
    (("Alt+f", "e", "g"), "Export JPG", "Exporting as BMP or JPEG"),
    (("Alt+f", "c", "u"), "Save Copy", "Saving a copy"),
    (("Alt+f", "c", "i"), "Copy Image(s)", "Copying and moving images"),
    (("Alt+f", "c", "f"), "Copy Image(s) From Floppy Drive", "Images on floppy disks"),
    (("Alt+f", "c", "t"), "Copy Images To Floppy", "Images on floppy disks"),
    (("Alt+f", "c", "o"), "Copy Images From Floppy To Floppy", "From floppy to floppy"),
    (("Alt+f", "d", "i"), "Delete Image(s)", "Deleting images"),
    (("Alt+f", "d", "o"), "Delete Images On Floppy", "Images on floppy disks"),
    (("Alt+f", "d", "f"), "Delete Empty Folder", "Deleting an empty folder"),
    (("Alt+f", "v", "i"), "Move Image(s)", "Copying and moving images"),
    (("Alt+f", "r", "m"), "Rename Image(s)", "Renaming images"),
]
REST = [
    (("Alt+Up",), "Rotate Image", "Rotating by any angle"),
    (("5",), "Resize Image", "Resizing to any size"),
    (("Alt+s", "f"), "Find Slide Show(s)", "Finding slide shows"),
    (("Alt+s", "r"), "Rename Slide Show", "Renaming a slide show"),
    (("Alt+s", "d"), "Delete Slide Show", "Deleting a slide show"),
    (("Alt+s", "p", "s"), "Tavrix - [Package Slide Show]", "Packing a slide show"),
    (("Alt+s", "p", "d"), "Tavrix - [Delete Package]", "Deleting a package"),
    (("Alt+o", "p"), "Preferences", "Preferences"),
    (("Alt+o", "a"), "Advanced Settings", "Advanced settings"),
    (("Alt+o", "i"), "Tavrix - [Image Information]", "Image information"),
    (("Alt+h", "a"), "About Tavrix", "About Tavrix"),
    (("Alt+h", "i"), "System Information", "System information"),
    (("Alt+h", "t"), "Tip of the Day", "Tip of the day"),
]
# No letter leads to this menu: File has it.
FAVORITES = [
    (("Favorites", "Organize", "Remove From List"), "Remove Favorite File(s)", "Favorite files"),
    (("Favorites", "Folders", "Favorite Folder"), "Favorite Folder", "The favorite folder"),
    (("Favorites", "Folders", "Quick Folders"), "Select Quick Folders", "Quick folders"),
]


class EveryWindowTest(HelpWindow, ProgramTest):
    def begin(self):
        """The program with a picture that is a file, and a floppy disk with another one."""
        disk = os.path.join(self.home.folder, "disk")
        os.makedirs(disk)
        path, image = self.picture(400, 350)
        image.save(os.path.join(disk, "beach.bmp"))
        favorite = "C:" + os.path.realpath(path).replace("/", "\\")
        self.home.write_settings(f"[Viewer]\nFavorite1={favorite}\nFavoriteFiles1={favorite}\n")
        program = self.start(path, environment={"TAVRIX_DRIVES": f"A={disk},floppy,disk;C=/"}, folder=self.home.pictures)
        return program, program.main(path)

    def open_by_keys(self, program, main, keys, title):
        self.screen.activate(main)
        wait_until(lambda: self.screen.active() == main.id, "the keyboard in the main view")
        for number, key in enumerate(keys):
            if number > 0:
                wait_until(lambda n=number: len(program.popups()) >= n, f"the menu {number} of {keys}")
            self.screen.press(key)
        return self.opened(program, title)

    def opened(self, program, title):
        window = program.window(title)
        wait_until(lambda: self.screen.active() == window.id, f"the keyboard in {title!r}")
        return window

    def check_help(self, program, window, page):
        """F1 and the Help button turn to the page."""
        self.screen.press("F1")
        help_window, top = self.help_window(program)
        self.wait_page(top, page)
        self.close_help(program, help_window)
        accessible = next(top for top in program.root().children() if top.name == window.title and top.has("showing"))
        for button in accessible.all("push button", "Help"):
            button.act()
            help_window, top = self.help_window(program)
            self.wait_page(top, page)
            self.close_help(program, help_window)

    def check(self, program, owner, window, page):
        """And Escape leads back."""
        self.check_help(program, window, page)
        self.press_in(window, "Escape")
        program.wait(lambda: window.title not in program.titles(), f"the end of {window.title!r}")
        wait_until(lambda: self.screen.active() == owner.id, f"the keyboard back from {window.title!r}")

    def press_button(self, program, window, name):
        top = next(top for top in program.root().children() if top.name == window.title and top.has("showing"))
        top.find("push button", name).act()

    def walk(self, entries):
        program, main = self.begin()
        for keys, title, page in entries:
            with self.subTest(title):
                self.check(program, main, self.open_by_keys(program, main, keys, title), page)
        self.end_by_escape(program)

    def test_the_file_menu(self):
        self.walk(FILE)

    def test_the_other_menus(self):
        self.walk(REST)

    def test_the_favorites(self):
        program, main = self.begin()
        program.menu_entry("Favorites", "Add To List").act()
        for names, title, page in FAVORITES:
            with self.subTest(title):
                wait_until(lambda names=names: program.menu_entry(*names).has("enabled"), f"{names} enabled")
                program.menu_entry(*names).act()
                self.check(program, main, self.opened(program, title), page)
        self.end_by_escape(program)

    def slides(self, program, window):
        top = next(top for top in program.root().children() if top.name == window.title and top.has("showing"))
        return top.find("list", "[View List]  ---  Slide Show Images:").children()

    def test_the_windows_of_the_editor(self):
        shows = os.path.join(self.home.program, "SLIDES")
        os.makedirs(shows)
        self.picture(40, 30)[1].save(os.path.join(shows, "slide.bmp"))
        program, main = self.begin()
        editor = self.open_by_keys(program, main, ("Alt+s", "e"), "Tavrix - [Slide Show Editor]")
        self.check_help(program, editor, "The editor of slide shows")
        for button, title, page in (("Options...", "Slide Show Options", "The options of a slide show"),
                                    ("Load...", "Load - Tavrix Slide Show  (.tvs)", "Loading a slide show")):
            with self.subTest(title):
                self.press_button(program, editor, button)
                self.check(program, editor, self.opened(program, title), page)
        self.press_button(program, editor, "Add all files")
        wait_until(lambda: self.slides(program, editor), "the slides")
        self.press_button(program, editor, "Save As...")
        self.check(program, editor, self.opened(program, "Save - Tavrix Slide Show  (.tvs)"), "Saving a slide show")
        self.press_button(program, editor, "Close")
        self.check(program, editor, self.opened(program, "Tavrix - [Changes Made]"), "The editor of slide shows")

    def test_the_thumbnails(self):
        program, main = self.begin()
        chooser = self.open_by_keys(program, main, ("Alt+f", "t", "b"), "Thumbnail Browser - [Select Folder to Browse]")
        self.press_button(program, chooser, "OK")
        browser = self.opened(program, "Tavrix - [Thumbnail Browser]")
        self.check_help(program, browser, "The thumbnail browser")

    def test_windows_of_windows(self):
        program, main = self.begin()
        rotate = self.open_by_keys(program, main, ("Alt+Up",), "Rotate Image")
        self.press_button(program, rotate, "Background")
        self.check(program, rotate, self.opened(program, "Background Color"), "The background color")
        self.press_in(rotate, "Escape")
        program.wait(lambda: rotate.title not in program.titles(), "the end of the dialog")
        program.menu_entry("Favorites", "Folders", "Quick Folders").act()
        quick = self.opened(program, "Select Quick Folders")
        self.press_button(program, quick, "Browse")
        self.check(program, quick, self.opened(program, "Select Quick Folder 1"), "The favorite folder")

    def test_the_move_of_the_current_image(self):
        program, main = self.begin()
        dialog = self.open_by_keys(program, main, ("Alt+f", "v", "c"), "Move Current Image")
        self.check_help(program, dialog, "Moving the current image")

    def test_the_settings_of_the_screen_saver(self):
        program = self.start("C")
        dialog = self.opened(program, "Tavrix - [Screen Saver Settings]")
        self.check_help(program, dialog, "The settings of the screen saver")
        self.press_in(dialog, "Escape")
        self.assertEqual(program.wait_end(), 0)


if __name__ == "__main__":
    import unittest
    unittest.main()
