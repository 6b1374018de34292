"""Slide shows and the full screen view on the real display."""

import os
import struct
import wave

from PIL import Image, ImageChops

from driver import drive_path, wait_unchanged, wait_until
from support import ProgramTest

_BACKGROUND = (64, 0, 0)


class StageTest(ProgramTest):
    def show_file(self, *pictures, interval=0, loop=False, name="show.tvs", sound=(0, "", 0, False)):
        """`sound` is its mode, its file, its track and whether it loops."""
        mode, file, track, repeated = sound
        lines = ['"Tavrix Slide Show"', '"Version 1.5"', str(mode), f'"{file}"', str(track), str(-int(repeated)),
                 str(interval), "0", "0", "0", str(-int(loop)), "0"]
        for picture in pictures:
            lines += [f'"{picture}"', '""']
        path = os.path.join(self.home.pictures, name)
        with open(path, "w", encoding="utf-8", newline="") as file:
            file.write("".join(line + "\r\n" for line in lines))
        return path

    def pictures(self):
        """A small picture, one that is wider than the screen, and one that is named as if it lay elsewhere."""
        _, small = self.picture(300, 200, "small.bmp")
        wide = Image.new("RGB", (2560, 512), (20, 160, 60))
        wide.save(os.path.join(self.home.pictures, "wide.bmp"))
        _, beside = self.picture(402, 302, "beside.bmp")
        return small, wide.resize((1280, 256)), beside

    def expected(self, image):
        """The screen with an image in its middle."""
        screen = Image.new("RGB", (self.screen.width, self.screen.height), _BACKGROUND)
        screen.paste(image, ((self.screen.width - image.width) // 2, (self.screen.height - image.height) // 2))
        return screen

    def shows(self, image, what):
        """Waits until the whole screen is the background with the image in its middle."""
        wanted = self.expected(image)
        wait_until(lambda: ImageChops.difference(self.screen.grab(), wanted).getbbox() is None,
                   lambda: f"{what} alone on the screen; it differs in "
                           f"{ImageChops.difference(self.screen.grab(), wanted).getbbox()}")

    def start_show(self, path, settings="", **options):
        self.home.write_settings("[Viewer]\nBackgroundColor=4\n" + settings)
        program = self.start(path, **options)
        stage = program.window("Tavrix Full Screen View")
        wait_until(lambda: self.screen.active() == stage.id, "the keyboard on the stage")
        return program


class ShowTest(StageTest):
    def test_three_pictures_are_stepped_through_to_the_end(self):
        small, wide, beside = self.pictures()
        path = self.show_file("small.bmp", drive_path(os.path.join(self.home.pictures, "wide.bmp")),
                              "D:\\elsewhere\\beside.bmp")
        program = self.start_show(path)
        self.shows(small, "the first picture")
        self.screen.press("Right")
        self.shows(wide, "the second picture")
        self.screen.press("space")
        self.shows(beside, "the third picture")
        self.screen.press("Home")
        self.shows(small, "the first picture again")
        self.screen.press("Left")
        self.shows(beside, "the last picture")
        self.screen.click(640, 100, button=3)
        self.assertEqual(program.wait_end(), 0)

    def test_a_show_plays_by_itself_and_a_key_ends_it(self):
        small, wide, beside = self.pictures()
        program = self.start_show(self.show_file("small.bmp", "wide.bmp", "beside.bmp", interval=1, loop=True))
        self.shows(wide, "the second picture")
        self.shows(beside, "the third picture")
        self.shows(small, "the first picture again")
        self.screen.press("Escape")
        self.assertEqual(program.wait_end(), 0)

    def test_the_navigator_leads_through_a_show(self):
        small, _, beside = self.pictures()
        program = self.start_show(self.show_file("small.bmp", "beside.bmp"),
                                  "ShowToolbar=TRUE\nToolbarX=300\nToolbarY=300\n")

        def seen(image, what):
            wanted = self.expected(image).crop((0, 300, 1280, 1024))
            wait_until(lambda: ImageChops.difference(self.screen.grab(0, 300), wanted).getbbox() is None,
                       f"{what} below the navigator")

        seen(small, "the first picture")
        navigator = wait_unchanged(lambda: program.window("Tavrix - [Navigator]"), "the navigator")

        def click(number):
            """The buttons stand in a row. A click beside them would end the show."""
            place = navigator.x + 4 + 40 * number + 20, navigator.y + 12
            wait_until(lambda: self.screen.grab(*place, 1, 1).getpixel((0, 0)) != _BACKGROUND,
                       "the navigator above the stage")
            self.screen.click(*place)

        click(2)  # Next
        seen(beside, "the second picture")
        click(4)  # Stop
        self.assertEqual(program.wait_end(), 0)

    def test_an_image_fills_the_screen_and_the_view_comes_back(self):
        self.home.write_settings("[Viewer]\nBackgroundColor=4\n")
        path, image = self.picture(300, 200)
        program = self.start(path)
        window = program.main(path)
        program.menu_entry("Options", "Full Screen View").act()
        stage = program.window("Tavrix Full Screen View")
        wait_until(lambda: self.screen.active() == stage.id, "the keyboard on the stage")
        self.assertEqual((stage.x, stage.y, stage.width, stage.height), (0, 0, 1280, 1024))
        self.shows(image, "the picture")
        self.screen.press("a")
        wait_until(lambda: "Tavrix Full Screen View" not in program.titles(), "the end of the stage")
        self.view(window, image)
        wait_until(lambda: self.screen.active() == window.id, "the keyboard on the main view")
        self.end_by_escape(program)


class SoundTest(StageTest):
    """What is played goes to a file in the place of a sound device."""

    def setUp(self):
        super().setUp()
        self.played = os.path.join(self.home.folder, "played")
        self.sound = {"SDL_AUDIODRIVER": "disk", "SDL_DISKAUDIOFILE": self.played, "SDL_DISKAUDIODELAY": "2"}

    def heard(self):
        """What was played, from the first sound on."""
        if not os.path.exists(self.played):
            return b""
        with open(self.played, "rb") as file:
            return file.read().lstrip(b"\0")

    @staticmethod
    def samples(count, first=1):
        """16-bit samples in stereo that all differ."""
        return b"".join(struct.pack("<hh", first + i, -first - i) for i in range(count))

    def wave(self, samples):
        with wave.open(os.path.join(self.home.pictures, "tune.wav"), "wb") as file:
            file.setnchannels(2)
            file.setsampwidth(2)
            file.setframerate(44100)
            file.writeframes(samples)

    def play(self, sound, **environment):
        """Plays a show of two pictures with a sound."""
        small, _, beside = self.pictures()
        path = self.show_file("small.bmp", "beside.bmp", sound=sound)
        program = self.start_show(path, environment={**self.sound, **environment})
        self.shows(small, "the first picture")
        return program, beside

    def ends(self, program):
        self.screen.press("Escape")
        self.assertEqual(program.wait_end(), 0)

    def test_a_wave_is_repeated_through_the_slides_until_the_show_ends(self):
        samples = self.samples(9_000)
        self.wave(samples)
        program, beside = self.play((1, "tune.wav", 0, True))
        wait_until(lambda: len(self.heard()) > 3 * len(samples), "the sound three times")
        self.screen.press("Right")
        self.shows(beside, "the second picture")
        before = len(self.heard())
        wait_until(lambda: len(self.heard()) > before + len(samples), "the sound going on")
        self.ends(program)
        heard = self.heard()
        self.assertEqual(heard, (samples * (len(heard) // len(samples) + 1))[:len(heard)])

    def test_a_wave_that_is_not_repeated_is_played_once(self):
        samples = self.samples(9_000)
        self.wave(samples)
        program, _ = self.play((1, "tune.wav", 0, False))
        wait_until(lambda: len(self.heard()) > 3 * len(samples), "the sound and the silence after it")
        self.ends(program)
        self.assertEqual(self.heard().rstrip(b"\0"), samples.rstrip(b"\0"))

    def test_a_show_with_a_sound_that_is_missing_is_silent(self):
        program, beside = self.play((1, "none.wav", 0, True))
        self.screen.press("Right")
        self.shows(beside, "the second picture")
        self.ends(program)
        self.assertEqual(self.heard(), b"")

    def test_a_track_of_an_audio_disc_is_played(self):
        sector, first, second = 2352, self.samples(20 * 588), self.samples(30 * 588, 12_000)
        disc = os.path.join(self.home.folder, "disc")
        os.makedirs(disc)
        with open(os.path.join(disc, "album.bin"), "wb") as file:
            file.write(first + second)
        self.assertEqual(len(first), 20 * sector)
        with open(os.path.join(disc, "album.cue"), "w", encoding="ascii") as file:
            file.write('FILE "album.bin" BINARY\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n'
                       "  TRACK 02 AUDIO\n    INDEX 01 00:00:20\n")
        drives = f"C=/;D={disc}/album.cue,cdrom"
        program, _ = self.play((2, "", 2, False), TAVRIX_DRIVES=drives)
        wait_until(lambda: len(self.heard()) > 2 * len(second), "the track and the silence after it")
        self.ends(program)
        self.assertEqual(self.heard().rstrip(b"\0"), second.rstrip(b"\0"))


class DiskTest(StageTest):
    """A show and its pictures on a disk that came from elsewhere."""

    def test_a_show_on_a_floppy_finds_its_pictures_beside_it(self):
        small, _, beside = self.pictures()
        floppy = os.path.join(self.home.folder, "floppy")
        os.makedirs(floppy)
        stored = [drive_path(os.path.join(self.home.pictures, name)) for name in ("small.bmp", "beside.bmp")]
        path = self.show_file(*stored)
        for name in ("small.bmp", "beside.bmp", "show.tvs"):
            os.rename(os.path.join(self.home.pictures, name), os.path.join(floppy, name))
        program = self.start_show("A:\\show.tvs", environment={"TAVRIX_DRIVES": f"A={floppy};C=/"})
        self.assertFalse(os.path.exists(path))
        self.shows(small, "the first picture")
        self.screen.press("Right")
        self.shows(beside, "the second picture")
        self.screen.press("Escape")
        self.assertEqual(program.wait_end(), 0)
        self.assertEqual(sorted(os.listdir(floppy)), ["beside.bmp", "show.tvs", "small.bmp"])

    def test_a_show_in_another_folder_than_its_pictures(self):
        small, _, beside = self.pictures()
        stored = [drive_path(os.path.join(self.home.pictures, name)) for name in ("small.bmp", "beside.bmp")]
        path = self.show_file(*stored)
        elsewhere = os.path.join(self.home.folder, "shows", "show.tvs")
        os.makedirs(os.path.dirname(elsewhere))
        os.rename(path, elsewhere)
        program = self.start_show(elsewhere)
        self.shows(small, "the first picture")
        self.screen.press("Left")
        self.shows(beside, "the last picture")
        self.screen.press("Escape")
        self.assertEqual(program.wait_end(), 0)
