"""Ends that nobody asked of the program itself: signals, and a display that goes."""

import fcntl
import os
import signal
import time

from PIL import Image

from driver import Session, drive_path
from support import ProgramTest
from test_edit import turned


class SessionEndTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.working = os.path.join(self.home.temporary, "Untitled.BMP")

    def open_and_turn(self):
        """A picture of 320 by 240 that was turned, so that the working file is on show."""
        path, image = self.picture(320, 240)
        program = self.start(path)
        program.main(path)
        self.screen.press("Alt+Right")
        program.main(self.working)
        self.wait_file(self.working, turned(image, Image.Transpose.ROTATE_270, (240, 320)), "turned")
        return program, path, image

    def assert_kept(self, path, image):
        """The settings are saved, and Temporary File brings the edit back."""
        for key in ("MainPosX", "MainSizeY", "QualityJPG", "FavoriteFolder"):
            self.assertIsNotNone(self.home.setting(key), key)
        self.assertEqual(self.home.setting("Recent1"), drive_path(path))
        self.wait_file(self.working, turned(image, Image.Transpose.ROTATE_270, (240, 320)), "kept")

    def test_signals_save_and_keep_the_working_file(self):
        for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
            with self.subTest(signal=number.name):
                self.home = self.new_home()
                self.working = os.path.join(self.home.temporary, "Untitled.BMP")
                program, path, image = self.open_and_turn()
                program.process.send_signal(number)
                self.assertEqual(program.wait_end(), 0)
                self.assert_kept(path, image)
        program = self.start()
        program.main()
        program.menu_entry("File", "Import", "Temporary File").act()
        program.main(self.working)
        self.wait_file(self.working, turned(image, Image.Transpose.ROTATE_270, (240, 320)), "brought back")

    def test_a_box_that_is_open_holds_no_end(self):
        program, path, image = self.open_and_turn()
        self.screen.press("Escape")
        self.assertIn("has not been saved", program.message_box().text)
        program.process.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait_end(), 0)
        self.assert_kept(path, image)

    def test_a_display_that_goes_saves_too(self):
        session = Session()
        self.addCleanup(session.close)
        self.session, self.screen, former = session, session.screen, (self.session, self.screen)
        try:
            program, path, image = self.open_and_turn()
            session.screen.end_server()
            program.process.wait(10)
            self.assert_kept(path, image)
        finally:
            self.session, self.screen = former

    def test_a_settings_folder_that_is_locked_holds_the_exit_for_a_moment_only(self):
        path, _ = self.picture(320, 240)
        program = self.start(path)
        program.main(path)
        folder = os.open(self.home.program, os.O_RDONLY)
        self.addCleanup(os.close, folder)
        fcntl.flock(folder, fcntl.LOCK_EX)
        start = time.monotonic()
        self.end_by_escape(program)
        self.assertLess(time.monotonic() - start, 5)
        self.assertEqual(self.home.setting("Recent1"), drive_path(path))

    def test_a_shared_temporary_folder_stays_as_it_is(self):
        shared = os.path.join(self.home.folder, "shared")
        os.mkdir(shared)
        os.chmod(shared, 0o1777)
        program = self.start(environment={"TAVRIX_TEMP": shared})
        program.main()
        self.end_by_escape(program)
        self.assertEqual(os.stat(shared).st_mode & 0o7777, 0o1777)
        own = os.path.join(shared, f"tavrix-{os.geteuid()}")
        self.assertEqual(os.stat(own).st_mode & 0o7777, 0o700)
        self.assertEqual(os.listdir(own), [])

    def test_nothing_stays_in_the_temporary_folder(self):
        path, _ = self.picture(320, 240)
        program = self.start(path)
        program.main(path)
        self.screen.press("Alt+Right")
        program.main(self.working)
        self.screen.press("Escape")
        program.message_box().press("Yes")
        self.assertEqual(program.wait_end(), 0)
        self.assertEqual(os.listdir(self.home.temporary), [])
