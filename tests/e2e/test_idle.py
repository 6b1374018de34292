"""The start of the screen saver when nobody works: the real program beside a real X server and a private bus."""

import ctypes.util
import os
import shutil
import signal
import socket
import threading
import time
import unittest

from gi.repository import Gio, GLib

from driver import drive_path, wait_until
from driver.accessibility import start_bus
from driver.host import HostWindow
from driver.program import PROGRAM
from test_show import StageTest

IDLE = os.environ.get("TAVRIX_IDLE") or os.path.join(os.path.dirname(PROGRAM), "tavrix-idle")
_SAVER = "Screen Saver Main Form"
_SETTINGS = "Tavrix - [Screen Saver Settings]"
_SCREEN_SAVER = "org.freedesktop.ScreenSaver"

_LOGIND = ("org.freedesktop.login1", "/org/freedesktop/login1", """<node>
<interface name="org.freedesktop.login1.Manager"><property name="BlockInhibited" type="s" access="read"/></interface>
</node>""")
_MUTTER = ("org.gnome.Mutter.IdleMonitor", "/org/gnome/Mutter/IdleMonitor/Core", """<node>
<interface name="org.gnome.Mutter.IdleMonitor"><method name="GetIdletime"><arg type="t" direction="out"/></method></interface>
</node>""")


class Service:
    """A service on the test's bus that answers every question by `answer`."""

    def __init__(self, address, kind, answer):
        self.answer = answer
        self.asked = 0
        self._loop = GLib.MainLoop(GLib.MainContext.new())
        self._ready = threading.Event()
        self._thread = threading.Thread(target=self._run, args=(address, *kind), daemon=True)
        self._thread.start()
        if not self._ready.wait(15):
            raise RuntimeError(f"{kind[0]} is not on the bus")

    def _run(self, address, name, path, xml):
        self._loop.get_context().push_thread_default()
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        bus = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        interface = Gio.DBusNodeInfo.new_for_xml(xml).interfaces[0]
        bus.register_object(path, interface, self._call, self._get, None)
        Gio.bus_own_name_on_connection(bus, name, Gio.BusNameOwnerFlags.NONE, lambda *_: self._ready.set(), None)
        self._loop.run()
        bus.close_sync(None)

    def _get(self, *_):
        self.asked += 1
        return self.answer

    def _call(self, *arguments):
        self.asked += 1
        arguments[-1].return_value(GLib.Variant.new_tuple(self.answer))

    def close(self):
        self._loop.quit()
        self._thread.join()


class IdleProgramTest(StageTest):
    """What the tests share."""

    def setUp(self):
        super().setUp()
        self.pictures()
        self.home.write_settings("[Viewer]\nBackgroundColor=4\n")
        self.home.set_in_store("CurrentSaver", drive_path(self.show_file("small.bmp", interval=60)))
        self.screen.press("Shift_L")
        self.addCleanup(self.end_savers)

    def start_idle(self, *arguments, program=IDLE, **environment):
        self._log = os.path.join(self.home.folder, "idle.log")
        process = self.session.children.start(
            [program, *arguments],
            {**self.session.environment, "DBUS_SYSTEM_BUS_ADDRESS": "unix:path=/nowhere", **self.home.environment,
             **environment}, self._log, cwd=self.home.folder)
        self.addCleanup(self.session.children.end, process)
        return process

    def savers(self):
        return [window for window in self.screen.windows() if window.title == _SAVER]

    def saver(self):
        window = wait_until(self.savers, "the saver")[0]
        wait_until(lambda: self.screen.active() == window.id, "the keyboard on the saver")
        return window

    def end_savers(self):
        for window in self.savers():
            os.kill(window.pid, signal.SIGKILL)
        wait_until(lambda: not self.savers(), "the end of the savers")

    def ends(self, process):
        return wait_until(lambda: (process.poll(),) if process.poll() is not None else None, "the end")[0]

    def never_starts(self, seconds):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            self.assertEqual(self.savers(), [])
            time.sleep(0.1)

    def service(self, kind, answer):
        service = Service(self.session.environment["DBUS_SESSION_BUS_ADDRESS"], kind, answer)
        self.addCleanup(service.close)
        return service

    def on_the_bus(self):
        address = self.session.environment["DBUS_SESSION_BUS_ADDRESS"]
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        bus = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        self.addCleanup(bus.close_sync, None)
        return bus

    def offered(self, bus):
        """Whether anybody on the bus is the desktop's saver."""
        return bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameHasOwner",
                             GLib.Variant("(s)", (_SCREEN_SAVER,)), None, 0, 5000, None)[0]

    def ask_saver(self, bus, method):
        return bus.call_sync(_SCREEN_SAVER, "/ScreenSaver", _SCREEN_SAVER, method, None, None, 0, 5000, None).unpack()

    @property
    def entry(self):
        return os.path.join(self.home.environment["XDG_CONFIG_HOME"], "autostart", "tavrix-idle.desktop")


@unittest.skipUnless(ctypes.util.find_library("Xss"), "libXss is not installed")
class IdleTest(IdleProgramTest):
    def test_it_starts_the_saver_again_and_again_when_nobody_works(self):
        process = self.start_idle("--seconds", "2")
        for _ in range(2):
            self.saver()
            time.sleep(0.5)
            self.screen.press("a")
            wait_until(lambda: not self.savers(), "the end of the saver")
        self.saver()
        self.assertIsNone(process.poll())

    def test_not_while_somebody_works(self):
        self.start_idle("--seconds", "5")
        for step in range(40):
            self.screen.move_pointer(600 + step % 7, 500)
            self.assertEqual(self.savers(), [])
            time.sleep(0.2)
        self.saver()

    def test_not_while_logind_says_that_idle_is_blocked(self):
        logind = self.service(_LOGIND, GLib.Variant("s", "idle"))
        self.start_idle("--seconds", "1",
                        DBUS_SYSTEM_BUS_ADDRESS=self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        wait_until(lambda: logind.asked >= 3, "questions to logind")
        self.assertEqual(self.savers(), [])
        logind.answer = GLib.Variant("s", "sleep")
        self.saver()

    def test_under_wayland_mutter_tells_the_time_and_the_end_of_the_compositor_is_the_end(self):
        mutter = self.service(_MUTTER, GLib.Variant("t", 1000))
        compositor = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        self.addCleanup(compositor.close)
        path = os.path.join(self.home.folder, "wayland-test")
        compositor.bind(path)
        compositor.listen()
        # The saver itself comes to the X display.
        process = self.start_idle("--seconds", "5", WAYLAND_DISPLAY=path, QT_QPA_PLATFORM="xcb")
        connection, _ = compositor.accept()
        wait_until(lambda: mutter.asked, "a question to the compositor")
        self.never_starts(3)
        mutter.answer = GLib.Variant("t", 600_000)
        self.saver()
        self.assertIsNone(process.poll())
        connection.close()
        self.assertEqual(self.ends(process), 0)
        self.assertTrue(self.savers(), "what is playing is left to its user")

    def test_the_compositor_may_be_named_without_its_folder(self):
        self.service(_MUTTER, GLib.Variant("t", 1000))
        compositor = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        self.addCleanup(compositor.close)
        compositor.settimeout(15)
        compositor.bind(os.path.join(self.session.environment["XDG_RUNTIME_DIR"], "wayland-by-name"))
        compositor.listen()
        process = self.start_idle("--seconds", "1000", WAYLAND_DISPLAY="wayland-by-name")
        connection, _ = compositor.accept()
        connection.close()
        self.assertEqual(self.ends(process), 0)

    def test_a_program_may_say_that_the_user_is_there(self):
        bus = self.on_the_bus()
        self.start_idle("--seconds", "4")
        self.saver()
        self.assertEqual(self.ask_saver(bus, "GetActive"), (True,))
        self.screen.press("a")
        wait_until(lambda: not self.savers(), "the end of the saver")
        wait_until(lambda: self.ask_saver(bus, "GetActive") == (False,), "a saver that does not run")
        end = time.monotonic() + 6
        while time.monotonic() < end:
            self.ask_saver(bus, "SimulateUserActivity")
            self.assertEqual(self.savers(), [])
            time.sleep(0.2)
        self.saver()

    def test_it_ends_with_its_bus(self):
        bus, daemon = start_bus(self.session.children, self.home.folder, "own-bus", self.screen.environment)
        process = self.start_idle("--seconds", "2", DBUS_SESSION_BUS_ADDRESS=bus)
        self.saver()
        daemon.kill()
        daemon.wait()
        self.screen.press("a")
        self.assertEqual(self.ends(process), 0)

    def test_the_entry_is_followed_also_when_it_was_replaced(self):
        def write(path, minutes):
            with open(path, "w", encoding="utf-8") as file:
                file.write(f"[Desktop Entry]\nExec=x\nX-Tavrix-Minutes={minutes}\n")
        mutter = self.service(_MUTTER, GLib.Variant("t", 100_000))
        os.makedirs(os.path.dirname(self.entry))
        write(self.entry, 9)
        self.start_idle(WAYLAND_DISPLAY="none", QT_QPA_PLATFORM="xcb")
        wait_until(lambda: mutter.asked, "a question to the compositor")
        asked = mutter.asked
        write(self.entry + ".new", 8)
        os.replace(self.entry + ".new", self.entry)
        wait_until(lambda: mutter.asked > asked, "a question for another time")
        self.never_starts(1)
        write(self.entry, 1)
        self.saver()

    def test_an_entry_that_is_being_written_does_not_end_it(self):
        mutter = self.service(_MUTTER, GLib.Variant("t", 100_000))
        os.makedirs(os.path.dirname(self.entry))
        with open(self.entry, "w", encoding="utf-8") as file:
            file.write("[Desktop Entry]\nExec=x\nX-Tavrix-Minutes=9\n")
        process = self.start_idle(WAYLAND_DISPLAY="none", QT_QPA_PLATFORM="xcb")
        wait_until(lambda: mutter.asked, "a question to the compositor")
        for text in ("", "[Desktop Entry]\nTyp"):
            asked = mutter.asked
            with open(self.entry, "w", encoding="utf-8") as file:
                file.write(text)
            wait_until(lambda asked=asked: mutter.asked > asked or process.poll() is not None, "a look at the entry")
            self.assertIsNone(process.poll(), text)
        self.assertEqual(self.savers(), [])
        with open(self.entry, "a", encoding="utf-8") as file:
            file.write("e=Application\nExec=x\nX-Tavrix-Minutes=1\n")
        self.saver()
        os.remove(self.entry)
        self.assertEqual(self.ends(process), 0)

    def test_not_while_our_own_show_plays(self):
        self.start_idle("--seconds", "6")
        self.saver()  # so that it offers its service by now
        self.screen.press("a")
        wait_until(lambda: not self.savers(), "the end of the saver")
        show = self.start(self.show_file("small.bmp", name="other.tvs"))

        def shown():
            self.screen.move_pointer(600 + int(time.monotonic() * 20) % 7, 500)
            return "Tavrix Full Screen View" in show.titles()
        wait_until(shown, "the show")
        self.never_starts(10)
        self.assertTrue(show.running())
        show.close()
        self.saver()

    def test_not_beside_xscreensaver(self):
        daemon = HostWindow(self.screen, 0, 0, 10, 10)
        daemon.mark("_SCREENSAVER_VERSION", "6.06")
        bus = self.on_the_bus()
        self.start_idle("--seconds", "1")
        self.never_starts(4)
        self.assertFalse(self.offered(bus), "another saver's name")
        daemon.close()
        self.saver()

    def test_a_saver_that_cannot_start_is_not_tried_for_ever(self):
        self.home.set_in_store("CurrentSaver", "")
        process = self.start_idle("--seconds", "1")
        self.never_starts(3)
        self.assertIsNone(process.poll())

    def test_it_starts_the_show_of_the_user_once_and_nothing_without_one(self):
        # Beside a program that notes what it is called with, and ends.
        folder = os.path.join(self.home.folder, "spied")
        os.makedirs(folder)
        calls = os.path.join(folder, "calls")
        viewer = os.path.join(folder, "tavrix")
        with open(viewer, "w", encoding="utf-8") as file:
            file.write(f"#!/bin/sh\nprintf '%s|' \"$@\" >> '{calls}'\n")
        os.chmod(viewer, 0o700)
        program = shutil.copy(IDLE, folder)
        show = self.home.in_store("CurrentSaver")
        self.home.set_in_store("CurrentSaver", "")
        process = self.start_idle("--seconds", "1", program=program)
        time.sleep(3)
        self.assertFalse(os.path.exists(calls))
        self.session.children.end(process)
        self.home.set_in_store("CurrentSaver", show)
        self.start_idle("--seconds", "1", program=program)
        wait_until(lambda: os.path.exists(calls), "the call")
        time.sleep(3)
        with open(calls, encoding="utf-8") as file:
            self.assertEqual(file.read(), f"SCRNSAVE|{show}|")

    def test_one_for_a_session(self):
        process = self.start_idle("--seconds", "1000")
        lock = os.path.join(self.session.environment["XDG_RUNTIME_DIR"],
                            f"tavrix-idle{self.session.environment['DISPLAY']}.lock")
        wait_until(lambda: os.path.exists(lock), "the lock")
        time.sleep(1)
        self.assertEqual(self.ends(self.start_idle("--seconds", "1")), 0)
        self.assertIsNone(process.poll())

    def test_it_needs_its_entry_and_ends_with_it(self):
        self.assertEqual(self.ends(self.start_idle()), 0)
        os.makedirs(os.path.dirname(self.entry))
        with open(self.entry, "w", encoding="utf-8") as file:
            file.write("[Desktop Entry]\nExec=x\nX-Tavrix-Minutes=5\n")
        process = self.start_idle()
        time.sleep(1)
        self.assertIsNone(process.poll())
        os.remove(self.entry)
        self.assertEqual(self.ends(process), 0)

    def test_wrong_words_are_told(self):
        for words in (["x"], ["--seconds"], ["--seconds", "0"], ["--seconds", "1", "2"]):
            self.assertEqual(self.ends(self.start_idle(*words)), 2)
        with open(self._log, encoding="utf-8") as file:
            self.assertIn("Usage:", file.read())

    def test_the_settings_switch_it_on_and_off(self):
        def settings():
            program = self.start("/c")
            return program, self.dialog(program, _SETTINGS)

        program, dialog = settings()
        dialog.find("check box", "Start by itself when nobody has worked for").act("Toggle")
        dialog.find("push button", "OK").act()
        self.assertEqual(program.wait_end(), 0)
        with open(self.entry, encoding="utf-8") as file:
            text = file.read()
        self.assertIn("X-Tavrix-Minutes=10\n", text)
        self.assertIn(f'Exec="{os.path.realpath(IDLE)}"\n', text)
        running = wait_until(self.idle_processes, "the idle start")
        self.assertEqual(len(running), 1)

        program, dialog = settings()
        self.assertTrue(dialog.find("check box", "Start by itself when nobody has worked for").has("checked"))
        dialog.find("check box", "Start by itself when nobody has worked for").act("Toggle")
        dialog.find("push button", "OK").act()
        self.assertEqual(program.wait_end(), 0)
        self.assertFalse(os.path.exists(self.entry))
        wait_until(lambda: not self.idle_processes(), "the end of the idle start")

    def idle_processes(self):
        """Those of this test's user."""
        found = []
        for name in filter(str.isdigit, os.listdir("/proc")):
            try:
                with open(f"/proc/{name}/environ", "rb") as file:
                    ours = f"TAVRIX_HOME={self.home.program}".encode() in file.read().split(b"\0")
                if ours and os.path.realpath(f"/proc/{name}/exe") == os.path.realpath(IDLE):
                    with open(f"/proc/{name}/stat", encoding="utf-8") as file:
                        if file.read().rsplit(")", 1)[1].split()[0] != "Z":
                            found.append(int(name))
            except OSError:
                pass
        return found


@unittest.skipUnless(ctypes.util.find_library("Xss"), "libXss is not installed")
class EndOfSessionTest(IdleProgramTest):
    """On a display that goes."""

    def end_savers(self):
        """There is no display to look for them on."""

    def test_it_ends_with_its_display(self):
        process = self.start_idle("--seconds", "1000")
        lock = os.path.join(self.session.environment["XDG_RUNTIME_DIR"],
                            f"tavrix-idle{self.session.environment['DISPLAY']}.lock")
        wait_until(lambda: os.path.exists(lock), "the lock")
        time.sleep(0.5)
        self.assertIsNone(process.poll())
        self.screen.end_server()
        self.assertEqual(self.ends(process), 0)
