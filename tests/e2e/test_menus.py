"""The menus as a screen reader sees them, and Escape."""

import unittest

from driver import drive_path, recent_caption, wait_until
from support import ProgramTest

FILE = ("File", [
    "New Image", "Open Image",
    ("Find", ["Find Image(s)", "Search For Duplicate Files"]),
    ("Thumbnails", ["Browse Folder", "Select Files"]),
    ("Import", ["Get Desktop Wallpaper", "Get Desktop Pattern", "Capture Entire Desktop", "Import TGA", "Import PCX",
                "Temporary File", "Color Palette"]),
    ("Export", ["Set Desktop Wallpaper", "Clear Desktop Wallpaper", "Export BMP", "Export JPG"]),
    ("Copy", ["Current Image", "Image(s)", "Images From Floppy", "Images To Floppy", "From Floppy To Floppy"]),
    ("Delete", ["Current Image", "Image(s)", "Images On Floppy", "Empty Folder"]),
    ("Explore", ["Current Image Folder", "Drive(s)", "Floppy Disk", "Windows Folder", "My Documents",
                 "Favorite Folder"]),
    ("Move", ["Current Image", "Image(s)"]),
    ("Rename", ["Current Image", "Image(s)"]),
    ("System", [("Screen Saver", ["Properties", "Settings"]), "Display Properties", "Multimedia Properties",
                "Diskcopy", "Format Floppy Disk"]),
    "Exit          [Escape Key]",
])
EDIT = ("Edit", [
    "Can't Undo", "Copy", "Paste",
    ("Flip", ["Horizontally", "Vertically"]),
    ("Rotate", ["90° CW          [Alt+Right Arrow]", "90° CCW          [Alt+Left Arrow]",
                "180°          [Alt+Down Arrow]", "Arbitrary...          [Alt+Up Arrow]"]),
    ("Resize", ["25% Smaller          [1 Key]", "25% Larger          [2 Key]", "50% Smaller          [3 Key]",
                "50% Larger          [4 Key]", "Arbitrary...          [5 Key]"]),
    "Crop          [0 Key]", "Reload Image", "Clear Screen",
])
REST = [
    ("Slide Show", [
        "Slide Show Editor", "Load Slide Show", "Find Slide Show(s)",
        "View Favorites As Slide Show          [! Key]", "Save Favorites As Slide Show          [@ Key]",
        "Rename Slide Show", "Delete Slide Show",
        ("Slide Show Package", ["Save", "Delete"]),
    ]),
    ("Favorites", [
        "Add To List",
        ("Organize", ["Remove From List", "Clear List"]),
        ("Folders", ["Favorite Folder", "Quick Folders"]),
    ]),
    ("Options", ["Full Screen View", "View Animated GIF", "Image Information", "Preferences", "Advanced Settings",
                 "Topmost Window"]),
    ("Help", [
        "About Tavrix", "System Information", "Tip of the Day",
        ("World Wide Web", ["Tavrix Web Site", "Check For Upgrade", None]),
        ("Help Topic", ["Search...", "Quick Start Guide", "How to Create a Slide Show",
                        "Frequently Asked Questions"]),
        "Help Contents",
    ]),
]
# Entries that need a picture.
NEED_PICTURE = [
    ("File", "Copy", "Current Image"), ("File", "Explore", "Current Image Folder"), ("Options", "Image Information"),
    ("Options", "Full Screen View"), ("Options", "View Animated GIF"), ("File", "Export", "Export BMP"),
    ("File", "Export", "Export JPG"), ("File", "Export", "Set Desktop Wallpaper"),
    ("File", "Delete", "Current Image"), ("File", "Import", "Color Palette"), ("Favorites", "Add To List"),
    ("File", "Rename", "Current Image"), ("File", "Move", "Current Image"),
]


def tree(entries):
    """The captions alone; entries without one are those that are hidden."""
    return [(e.name, tree(e.entries)) if e.entries else e.name for e in entries if e.name]


def expected(menus):
    return [(e[0], expected(e[1])) if isinstance(e, tuple) else e for e in menus]


def fill_in(wanted, seen):
    """Puts what is seen where any caption will do."""
    return [(w[0], fill_in(w[1], s[1])) if isinstance(w, tuple) and isinstance(s, tuple) else s if w is None else w
            for w, s in zip(wanted, seen, strict=False)] + wanted[len(seen):]


class MenuTest(ProgramTest):
    maxDiff = None

    def test_whole_tree(self):
        path, _ = self.picture(400, 350)
        program = self.start(path)
        program.main(path)
        seen = tree(program.menu_tree())
        file = (FILE[0], [*FILE[1][:-1], recent_caption(path), FILE[1][-1]])
        wanted = expected([file, EDIT, *REST])
        self.assertEqual(seen, fill_in(wanted, seen))

    def test_what_needs_a_picture_is_disabled_without_one(self):
        program = self.start()
        program.main()
        for way in NEED_PICTURE:
            self.assertFalse(program.menu_entry(*way).has("enabled"), way)
        for way in (("File", "Exit          [Escape Key]"), ("Options", "Topmost Window")):
            self.assertTrue(program.menu_entry(*way).has("enabled"), way)

    def test_edit_menu_comes_with_a_picture(self):
        program = self.start()
        program.main()
        names = [e.name for e in program.root().find("menu bar").children() if e.has("visible")]
        self.assertEqual(names, ["File", "Slide Show", "Favorites", "Options", "Help"])
        self.end_by_escape(program)
        program, _, _ = self.open(400, 350)
        names = [e.name for e in program.root().find("menu bar").children() if e.has("visible")]
        self.assertEqual(names, ["File", "Edit", "Slide Show", "Favorites", "Options", "Help"])
        self.assertFalse(program.menu_entry("Edit", "Can't Undo").has("enabled"))
        self.assertFalse(program.menu_entry("Options", "View Animated GIF").has("enabled"))
        self.assertTrue(program.menu_entry("Edit", "Reload Image").has("enabled"))

    def test_long_paths_are_cut_in_the_recent_list(self):
        name = "n" * 70 + ".bmp"
        path, _ = self.picture(400, 350, name)
        program = self.start(path)
        program.main(path)
        names = [e.name for e in program.menu_tree()[0].entries]
        self.assertIn("  ..." + drive_path(path)[-57:], names)

    def test_escape_closes_an_open_menu_and_not_the_program(self):
        program, window, _ = self.open(400, 350)
        self.screen.press("Alt+f")
        program.wait(program.popups, "the menu")
        self.screen.press("Escape")
        wait_until(lambda: not program.popups(), "the menu's end")
        self.screen.press("Escape")  # leaves the menu bar, which still has the keyboard
        wait_until(lambda: not program.running() or not any(
            e.has("selected") or e.has("focused") for e in program.root().find("menu bar").children()), "the bar's end")
        self.assertTrue(program.running())
        self.assertEqual(program.titles(), [window.title])
        self.end_by_escape(program)

    def test_escape_ends(self):
        program, _, _ = self.open(400, 350)
        self.end_by_escape(program)

    def test_exit_by_menu_and_by_the_frame(self):
        program = self.start()
        program.main()
        program.menu_entry("File", "Exit          [Escape Key]").act()
        self.assertEqual(program.wait_end(), 0)
        program = self.start()
        self.screen.ask_to_close(program.main())
        self.assertEqual(program.wait_end(), 0)

    def popup_names(self, program, x, y):
        program.focused()
        self.screen.click(x, y, button=3)
        program.wait(program.popups, "the popup menu")
        self.screen.press("Down")
        focus = program.wait(lambda: [f for f in program.focused() if f.role.endswith("menu item")], "a popup entry")
        return [e.name for e in focus[-1].parent.children() if e.has("visible") and e.role != "separator"]

    def test_right_button_opens_the_edit_menu_over_a_picture(self):
        program, window, _ = self.open(400, 350)
        names = self.popup_names(program, *window.centre)
        self.assertEqual(names, [e[0] if isinstance(e, tuple) else e for e in EDIT[1]])
        self.screen.press("Escape")
        wait_until(lambda: not program.popups(), "the menu's end")
        self.assertTrue(program.running())

    def test_right_button_opens_the_file_menu_without_a_picture(self):
        program = self.start()
        window = program.main()
        names = self.popup_names(program, *window.centre)
        self.assertEqual(names, [e[0] if isinstance(e, tuple) else e for e in FILE[1]])

    def test_clear_and_reload(self):
        program, window, view = self.open(400, 350)
        path, image = self.picture(420, 330)  # another picture in the same file
        program.menu_entry("Edit", "Reload Image").act()
        window = wait_until(lambda: (w := program.main(path)).width > 420 and w, "the window's new size")
        self.view(window, image, x=0, y=0, width=420, height=330)
        program.menu_entry("Edit", "Clear Screen").act()
        program.main()
        self.assertEqual(program.titles(), ["Tavrix"])

    def test_topmost_is_checked_and_kept(self):
        program = self.start()
        window = program.main()
        program.menu_entry("Options", "Topmost Window").act()
        wait_until(lambda: "_NET_WM_STATE_ABOVE" in self.screen.state(window), "the window on top")
        self.assertTrue(program.menu_entry("Options", "Topmost Window").has("checked"))
        self.end_by_escape(program)
        self.assertEqual(self.home.setting("TopMostWindow"), "True")
        program = self.start()
        window = program.main()
        wait_until(lambda: "_NET_WM_STATE_ABOVE" in self.screen.state(window), "the window on top")


if __name__ == "__main__":
    unittest.main()
