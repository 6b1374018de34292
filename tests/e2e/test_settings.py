"""What an end leaves in tavrix.ini, and what the next start makes of it."""

import os
import time
import unittest

from driver import drive_path, recent_caption
from support import ProgramTest

# Written by every end, in this order.
AT_EXIT = [
    "NewImageX", "NewImageY", "BackColorR", "BackColorG", "BackColorB", "NewGetsClipboard", "ToolbarX", "ToolbarY",
    "TopMostWindow", "LastOpenedFile", "LastCopyToPath", "ThumbnailExtension", "ThumbnailDelete", "QualityJPG",
    "RotateAngle", "RotateDirection", "RotatePreserve", "ImageSizeAspect", "OpenShowPreview", "WallpaperStretch",
    "WallpaperAspect", "SelectDuplicates", "LastSlideShow",
    *(f"Recent{n}" for n in range(1, 8)), *(f"RecentShow{n}" for n in range(1, 21)),
    *(f"FavoriteFile{n}" for n in range(1, 21)), "FavoriteFolder",
    *(name for n in range(1, 5) for name in (f"QuickFolder{n}", f"QuickFolderPath{n}")),
]
OWN = """; a note of mine
[Viewer]
MouseSensitivity=7
Colour=blue
NewImageX=800
; another
QualityJPG=11

[Package]
Name=Holidays
; and one here
[Other]
NewImageX=3
"""


class SettingsTest(ProgramTest):

    def start_and_end(self, *arguments, picture=None):
        program = self.start(*arguments)
        program.main(picture)
        self.end_by_escape(program)

    def test_first_end_writes_all_that_it_owns(self):
        path, _ = self.picture(640, 480)
        self.start_and_end(path, picture=path)
        for key in [*AT_EXIT, "MainPosX", "MainPosY", "MainSizeX", "MainSizeY"]:
            self.assertIsNotNone(self.home.setting(key), key)
        wanted = {"LastOpenedFile": drive_path(path), "Recent1": drive_path(path), "Recent2": "", "NewImageX": "640",
                  "NewGetsClipboard": "False", "ThumbnailExtension": "?", "QualityJPG": "8", "RotateAngle": "180",
                  "MainPosX": "0", "MainPosY": "0",
                  "FavoriteFolder": drive_path(os.path.join(self.home.program, "SLIDES"))}
        self.assertEqual({key: self.home.setting(key) for key in wanted}, wanted)
        self.assertIsNone(self.home.setting("MouseSensitivity"))
        self.assertTrue(os.path.isdir(os.path.join(self.home.program, "SLIDES")))

    def test_what_is_not_ours_comes_through(self):
        self.home.write_settings(OWN)
        self.start_and_end()
        lines = self.home.read_settings()
        kept = [line for line in OWN.splitlines() if line and not line.startswith("QualityJPG")]
        self.assertEqual([line for line in lines if line in kept], kept)
        self.assertEqual(self.home.setting("QualityJPG"), "8")
        self.assertEqual(self.home.setting("NewImageX", "Other"), "3")
        for key in AT_EXIT:
            self.assertEqual(sum(line.lower().startswith(key.lower() + "=") for line in lines
                                 if line != "NewImageX=3"), 1, key)
        before = lines
        self.start_and_end()
        self.assertEqual(self.home.read_settings(), before)

    def test_second_start_shows_the_last_picture(self):
        self.home.write_settings("[Viewer]\nDisplayLastOpened=True\n")
        path, image = self.picture(500, 400)
        self.start_and_end(path, picture=path)
        program = self.start()
        window = program.main(path)
        self.view(window, image, x=0, y=0, width=500, height=400)
        self.end_by_escape(program)
        self.assertEqual(self.home.setting("LastOpenedFile"), drive_path(path))

    def test_second_start_without_the_wish_is_empty(self):
        path, _ = self.picture(500, 400)
        self.start_and_end(path, picture=path)
        program = self.start()
        program.main()
        self.assertEqual(program.titles(), ["Tavrix"])
        names = [entry.name for entry in program.menu_tree()[0].entries]
        self.assertIn(recent_caption(path), names)
        self.end_by_escape(program)
        self.assertEqual(self.home.setting("LastOpenedFile"), "")
        self.assertEqual(self.home.setting("Recent1"), drive_path(path))

    def test_recent_list_is_not_kept_when_it_is_not_wanted(self):
        self.home.write_settings("[Viewer]\nKeepRecent=False\nRecent1=C:\\old.bmp\n")
        path, _ = self.picture(500, 400)
        self.start_and_end(path, picture=path)
        self.assertEqual(self.home.setting("Recent1"), "")

    def test_names_beyond_the_single_byte_code_page(self):
        self.home.write_settings("[Viewer]\nDisplayLastOpened=True\n")
        path, image = self.picture(500, 400, "фото 写真.bmp")
        self.start_and_end(path, picture=path)
        program = self.start()
        self.view(program.main(path), image, x=0, y=0)

    def test_kill_at_any_moment_leaves_the_old_file_or_the_new_one(self):
        self.home.write_settings(OWN)
        self.start_and_end()
        first = self.home.read_settings()
        path, _ = self.picture(500, 400)
        seen = set()
        for delay in range(0, 40, 4):
            self.home.write_settings("\n".join(first) + "\n")
            program = self.start(path)
            program.main(path)
            self.screen.press("Escape")
            until = time.monotonic() + delay / 1000
            while time.monotonic() < until and program.running():
                pass
            program.kill()
            lines = self.home.read_settings()
            names = [line.partition("=")[0] for line in lines]
            self.assertEqual([n for n in names if n in {line.partition("=")[0] for line in first}],
                             [line.partition("=")[0] for line in first])
            self.assertIn(self.home.setting("LastOpenedFile"), ("", drive_path(path)))
            seen.add(self.home.setting("LastOpenedFile"))
            self.start_and_end()
        self.assertTrue(seen)


if __name__ == "__main__":
    unittest.main()
