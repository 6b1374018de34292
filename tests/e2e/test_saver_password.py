"""The guarded screen saver: it holds the screen for whoever knows the password of the account. The account is a stand-in's,
since nobody may be asked for a real one: PAM is wrapped, and so is what tells about accounts."""

import contextlib
import glob
import os
import pwd
import random
import shutil
import signal
import socket
import subprocess
import time
import unittest

from PIL import Image
from Xlib import X, Xatom, display
from gi.repository import Gio, GLib

from driver import wait_until
from driver.accessibility import start_bus
from driver.program import PROGRAM
from test_saver import _SAVER, _SETTINGS
from test_show import StageTest

_WRAPPER = glob.glob("/usr/lib/*/libpam_wrapper.so") + glob.glob("/usr/lib*/libpam_wrapper.so")
_MATRIX = glob.glob("/usr/lib/*/pam_wrapper/pam_matrix.so") + glob.glob("/usr/lib*/pam_wrapper/pam_matrix.so")
_HELPERS = os.path.join(os.path.dirname(os.path.dirname(PROGRAM)), "libexec", "tavrix")
_GUARD = "tavrix-guard"
_PASSWORD = "correct horse"
_LOGIN = "org.freedesktop.login1"
_SCREEN_SAVER = "org.freedesktop.ScreenSaver"
_LOCKERS = [_SCREEN_SAVER, "org.gnome.ScreenSaver", "org.kde.screensaver", "org.mate.ScreenSaver", "org.xfce.ScreenSaver",
            "org.cinnamon.ScreenSaver", "org.gnome.Shell"]
_IDLE = "example.tavrix.Idle"
_LOGIN_OBJECTS = {
    "/org/freedesktop/login1/session/auto": f"""<node><interface name="{_LOGIN}.Session"><method name="Lock"/></interface>
</node>""",
    "/org/freedesktop/login1": f"""<node><interface name="{_LOGIN}.Manager"><method name="LockSession">
<arg direction="in" type="s"/></method></interface></node>"""}


class Names:
    """A program on a bus that has names."""

    def __init__(self, address):
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self.connection = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        self.connection.set_exit_on_close(False)

    def take(self, name):
        self._call("RequestName", "(su)", name, 0)

    def release(self, name):
        self._call("ReleaseName", "(s)", name)

    def _call(self, method, kind, *arguments):
        return self.connection.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method,
                                         GLib.Variant(kind, arguments), None, 0, 5000, None)

    def close(self):
        self.connection.close_sync(None)


class Logind(Names):
    """The session service, as far as it is asked to lock a session. It hears when calls() is called."""

    def __init__(self, address):
        super().__init__(address)
        self._calls = []
        for path, interfaces in _LOGIN_OBJECTS.items():
            node = Gio.DBusNodeInfo.new_for_xml(interfaces)
            self.connection.register_object(path, node.interfaces[0], self._called)
        self.take(_LOGIN)

    def _called(self, _connection, _sender, _path, _interface, method, arguments, invocation):
        self._calls.append((method, *arguments.unpack()))
        invocation.return_value(None)

    def calls(self):
        context = GLib.MainContext.default()
        while context.pending():
            context.iteration(False)
        return self._calls


@unittest.skipUnless(_WRAPPER and _MATRIX, "libpam-wrapper is not installed")
@unittest.skipUnless(os.path.exists("/etc/pam.d/tavrix") or os.path.exists("/etc/pam.d/other"), "there is no PAM here")
class GuardedTest(StageTest):
    session_options = {"window_manager": "openbox", "repeat": (200, 30)}

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.system_bus, _ = start_bus(cls.session.children, cls.session.folder, "system-bus", cls.screen.environment)

    def setUp(self):
        super().setUp()
        self.environment = self._stand_in()
        # Beside processes that are just being killed the wrapper may not find a folder at once.
        if all(self._check_password() != 0 for _ in range(3)):
            self.skipTest("PAM cannot be wrapped here")
        self.other = display.Display(self.screen.environment["DISPLAY"])
        self.addCleanup(self.other.close)
        self.logind = Logind(self.system_bus)
        self.addCleanup(self.logind.close)
        self.addCleanup(self._end_guards)

    def _put_desktop(self):
        """Something bright over the whole screen, to be seen wherever nothing covers it."""
        root = self.other.screen().root
        desktop = root.create_window(0, 0, self.screen.width, self.screen.height, 0, X.CopyFromParent,
                                     background_pixel=0x00FF00, override_redirect=True)
        desktop.map()
        desktop.configure(stack_mode=X.Below)
        self.other.sync()
        self.desktop = desktop

    def _stand_in(self, state="P"):
        folder = os.path.join(self.home.folder, "account")
        services, programs = (os.path.join(folder, name) for name in ("services", "programs"))
        os.makedirs(services, exist_ok=True)
        os.makedirs(programs, exist_ok=True)
        account = pwd.getpwuid(os.getuid()).pw_name
        known = os.path.join(folder, "known")
        with open(known, "w", encoding="utf-8") as file:
            file.write(f"{account}:{_PASSWORD}:tavrix\n")
        with open(os.path.join(services, "tavrix"), "w", encoding="utf-8") as file:
            file.write(f"auth required {_MATRIX[0]} passdb={known}\naccount required {_MATRIX[0]} passdb={known}\n")
        with open(os.path.join(programs, "passwd"), "w", encoding="utf-8") as file:
            file.write(f"#!/bin/sh\n[ \"$1\" = -S ] && echo '{account} {state} 2026-01-01 0 99999 7 -1'\n")
        os.chmod(os.path.join(programs, "passwd"), 0o755)
        path = programs + ":" + self.session.environment.get("PATH", "/usr/bin:/bin")
        return {"PATH": path, "LD_PRELOAD": _WRAPPER[0], "PAM_WRAPPER": "1", "PAM_WRAPPER_SERVICE_DIR": services,
                "DBUS_SYSTEM_BUS_ADDRESS": self.system_bus}

    def _check_password(self):
        """What the checker says of the stand-in's password. A sanitized one cannot be wrapped."""
        return subprocess.run([os.path.join(_HELPERS, "tavrix-password")], input=_PASSWORD.encode(), check=False,
                              env={**self.session.environment, **self.environment}, stderr=subprocess.DEVNULL).returncode

    def _guards(self):
        """The ids of the guards of this display."""
        found = []
        for name in filter(str.isdigit, os.listdir("/proc")):
            try:
                with open(f"/proc/{name}/comm", encoding="utf-8") as comm, \
                        open(f"/proc/{name}/environ", "rb") as environment:
                    if comm.read().strip() == _GUARD and \
                            f"HOME={self.home.folder}".encode() in environment.read().split(b"\0"):
                        found.append(int(name))
            except OSError:
                pass
        return found

    def _end_guards(self):
        for guard in self._guards():
            os.kill(guard, signal.SIGKILL)
        wait_until(lambda: not self._guards(), "the end of the guards")

    def switch(self, value):
        folder = os.path.join(self.home.environment["XDG_CONFIG_HOME"], "tavrix")
        os.makedirs(folder, mode=0o700, exist_ok=True)
        with open(os.path.join(folder, "registry.ini"), "w", encoding="utf-8") as file:
            file.write(f"[Control Panel\\desktop]\nScreenSaveUsePassword={value}\n")

    def begin(self, *pictures, grace=0, interval=60, environment=None, switch="1"):
        if switch is not None:
            self.switch(switch)
        self.home.write_settings("[Viewer]\nBackgroundColor=4\n" + f"PasswordDelay={grace}\n")
        path = self.show_file(*(pictures or ("small.bmp",)), interval=interval)
        return self.start("SCRNSAVE", path, environment={**self.environment, **(environment or {})})

    def start_guarded(self, *pictures, **options):
        self._put_desktop()
        self.small, *_ = self.pictures()
        program = self.begin(*pictures, **options)
        self.shows(self.small, "the first picture")
        wait_until(lambda: len(self._guards()) == 1, "the guard")
        return program

    def held(self):
        """Whether another program gets neither the keyboard nor the pointer."""
        root = self.other.screen().root
        keyboard = root.grab_keyboard(True, X.GrabModeAsync, X.GrabModeAsync, X.CurrentTime)
        pointer = root.grab_pointer(True, X.ButtonPressMask, X.GrabModeAsync, X.GrabModeAsync, X.NONE, X.NONE,
                                    X.CurrentTime)
        self.other.ungrab_keyboard(X.CurrentTime)
        self.other.ungrab_pointer(X.CurrentTime)
        self.other.sync()
        return keyboard == X.AlreadyGrabbed and pointer == X.AlreadyGrabbed

    def question(self, program):
        def look():
            return next((top for top in program.root().children() if top.has("showing") and top.all("text")),
                        None)
        question = program.wait(look, lambda: "the question for the password: " + program.root().dump())
        wait_until(lambda: question.all("text")[0].has("focused"), "the keyboard on the question")
        return question

    def enter(self, text):
        if text:
            self.screen.type(text)
        self.screen.press("Return")

    def black(self):
        wait_until(lambda: self.screen.grab().getcolors() == [(self.screen.width * self.screen.height, (0, 0, 0))],
                   "a black screen")

    def guard_asks(self):
        """The guard's question on the screen; the guard is no program of the test's."""
        wait_until(lambda: self.screen.grab().getcolors(10000) is None or len(self.screen.grab().getcolors(10000)) > 2,
                   "the question of the guard")

    def take_over(self, program, how, call=("Lock",)):
        program.process.send_signal(how)
        program.process.wait()
        self.black()
        wait_until(self.held, "the guard's hold")
        wait_until(lambda: self.logind.calls() == [call], "the wish for a lock")

    def start_lone_guard(self):
        """A guard without a saver, and what a saver would hold of it; closed, the saver has ended."""
        ours, theirs = socket.socketpair()
        with theirs:
            process = subprocess.Popen(
                [os.path.join(_HELPERS, _GUARD), os.path.join(_HELPERS, "tavrix-password")], stdin=theirs, stdout=theirs,
                env={**self.session.environment, **self.home.environment, **self.environment})
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        self.addCleanup(ours.close)
        return process, ours

    def map_red(self, managed):
        root = self.other.screen().root
        window = root.create_window(100, 100, 500, 400, 0, X.CopyFromParent, background_pixel=0xFF0000,
                                    override_redirect=not managed)
        window.set_wm_name("thief")
        window.map()
        self.other.sync()
        return window

    def whole_above(self, window):
        """How many windows over the whole screen lie above this one, besides the desktop."""
        children = self.other.screen().root.query_tree().children
        above = children[[child.id for child in children].index(window.id) + 1:]
        found = 0
        for child in above:
            attributes, size = child.get_attributes(), child.get_geometry()
            found += (child.id != self.desktop.id and attributes.win_class == X.InputOutput
                      and attributes.map_state == X.IsViewable
                      and (size.width, size.height) == (self.screen.width, self.screen.height))
        return found

    def is_not_guarded(self, **options):
        small, *_ = self.pictures()
        program = self.begin(**options)
        self.shows(small, "the picture")
        self.assertFalse(self.held())
        self.assertEqual(self._guards(), [])
        self.screen.press("a")
        self.assertEqual(program.wait_end(), 0)


class GuardedSaverTest(GuardedTest):
    def test_it_ends_with_the_right_password_only(self):
        program = self.start_guarded()
        self.assertTrue(self.held())
        self.screen.press("a")
        question = self.question(program)
        self.assertTrue(self.held())
        self.enter("correct hors")
        question.find("label", "The password is wrong.")
        self.screen.press("Return")
        self.shows(self.small, "the picture after a wrong password")
        self.assertTrue(self.held())
        self.screen.press("Escape")
        self.question(program)
        self.screen.press("Escape")
        self.shows(self.small, "the picture after a question that was closed")
        self.screen.click(640, 400)
        self.question(program)
        self.enter(_PASSWORD)
        self.assertEqual(program.wait_end(), 0)
        wait_until(lambda: not self._guards(), "the end of the guard")
        self.assertFalse(self.held())
        self.assertEqual(self.logind.calls(), [])

    def test_within_the_grace_period_nothing_is_asked(self):
        program = self.start_guarded(grace=4)
        self.assertTrue(self.held())
        self.screen.press("a")
        self.assertEqual(program.wait_end(), 0)
        wait_until(lambda: not self._guards(), "the end of the guard")
        self.assertEqual(self.logind.calls(), [])

    def test_it_does_not_start_where_somebody_else_holds_the_keyboard(self):
        self.pictures()
        root = self.other.screen().root
        root.grab_keyboard(True, X.GrabModeAsync, X.GrabModeAsync, X.CurrentTime)
        self.other.sync()
        program = self.begin()
        self.assertEqual(program.wait_end(), 0)
        self.assertEqual(self._guards(), [])
        self.other.ungrab_keyboard(X.CurrentTime)
        self.other.sync()

    def test_nor_where_somebody_else_holds_the_pointer(self):
        self.pictures()
        root = self.other.screen().root
        root.grab_pointer(True, X.ButtonPressMask, X.GrabModeAsync, X.GrabModeAsync, X.NONE, X.NONE, X.CurrentTime)
        self.other.sync()
        program = self.begin()
        self.assertEqual(program.wait_end(), 0)
        self.assertEqual(self._guards(), [])
        self.other.ungrab_pointer(X.CurrentTime)
        self.other.sync()

    def test_killed_it_leaves_the_screen_to_its_guard(self):
        program = self.start_guarded()
        self.take_over(program, signal.SIGKILL)
        self.screen.press("a")
        self.guard_asks()
        self.enter("wrong")
        time.sleep(0.5)
        self.screen.press("Return")
        self.black()
        self.assertTrue(self.held())
        self.map_red(False)
        self.map_red(True)
        time.sleep(0.3)
        self.black()
        self.screen.click(300, 300)
        self.guard_asks()
        self.enter(_PASSWORD)
        wait_until(lambda: not self._guards(), "the end of the guard")
        self.assertFalse(self.held())
        self.assertEqual(self.logind.calls(), [("Lock",)])

    def test_a_guard_whose_saver_is_gone_before_it_is_up_takes_over_too(self):
        self._put_desktop()
        self.start_lone_guard()[1].close()
        self.black()
        wait_until(self.held, "the guard's hold")
        wait_until(lambda: self.logind.calls() == [("Lock",)], "the wish for a lock")

    def test_one_word_alone_lets_the_guard_go(self):
        self._put_desktop()
        guard, saver = self.start_lone_guard()
        cover = saver.recv(100)
        self.assertRegex(cover, rb"\A[1-9][0-9]*\n\Z")
        saver.sendall(b"r\0 \n1Q" + cover)
        time.sleep(0.5)
        self.assertIsNone(guard.poll())
        self.black()
        self.assertFalse(self.held(), "the saver holds the screen, as long as it is there")
        saver.close()
        wait_until(self.held, "the guard's hold")
        second, saver = self.start_lone_guard()
        saver.recv(100)
        saver.sendall(b"R")
        wait_until(lambda: second.poll() is not None, "the end of the guard")
        self.assertEqual(second.returncode, 0)
        self.assertEqual(self.logind.calls(), [("Lock",)])

    def on_the_bus(self):
        program = Names(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.addCleanup(program.close)
        return program

    def test_a_locker_on_the_bus_is_left_to_lock(self):
        locker = self.on_the_bus()
        for name in _LOCKERS:
            locker.take(name)
            self.is_not_guarded()
            locker.release(name)

    def test_our_own_start_of_the_saver_is_no_locker(self):
        idle = self.on_the_bus()
        idle.take(_SCREEN_SAVER)
        idle.take(_IDLE)
        self.start_guarded()

    def test_so_is_a_daemon_that_has_marked_a_window(self):
        window = self.other.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        window.change_property(self.other.get_atom("_SCREENSAVER_VERSION"), Xatom.STRING, 8, b"6.06")
        self.other.sync()
        self.is_not_guarded()

    def test_asked_to_end_by_a_signal_it_leaves_the_screen_to_its_guard(self):
        self.take_over(self.start_guarded(), signal.SIGTERM)

    def test_the_session_is_locked_by_its_name(self):
        program = self.start_guarded(environment={"XDG_SESSION_ID": "c7"})
        self.take_over(program, signal.SIGKILL, ("LockSession", "c7"))

    def test_the_guard_goes_on_trying_while_somebody_else_is_quicker(self):
        program = self.start_guarded()
        program.process.send_signal(signal.SIGSTOP)
        guard, = self._guards()
        os.kill(guard, signal.SIGSTOP)
        program.kill()
        root = self.other.screen().root
        wait_until(lambda: root.grab_keyboard(True, X.GrabModeAsync, X.GrabModeAsync, X.CurrentTime) == X.GrabSuccess,
                   "the keyboard for another program")
        self.other.sync()
        os.kill(guard, signal.SIGCONT)
        self.black()
        time.sleep(1)
        self.other.ungrab_keyboard(X.CurrentTime)
        self.other.sync()
        wait_until(self.held, "the guard's hold")

    def test_whatever_a_passer_by_presses_it_stays(self):
        self.pictures()
        program = self.start_guarded("small.bmp", "wide.bmp", "beside.bmp", interval=1)
        chance = random.Random(4711)
        keys = ["a", "b", "space", "Return", "Escape", "Tab", "F1", "F10", "Delete", "Alt+F4", "Alt+Tab", "Ctrl+Alt+a",
                "Alt+space", "Menu", "Ctrl+v", "Ctrl+c", "Shift+Insert"]
        for step in range(250):
            if chance.random() < 0.7:
                self.screen.press(chance.choice(keys))
            else:
                self.screen.click(chance.randrange(self.screen.width), chance.randrange(self.screen.height),
                                  button=chance.choice((1, 2, 3)))
            if step % 25 == 0:
                self.assertTrue(self.held(), step)
                self.assertTrue(program.running(), step)
        self.assertTrue(program.running())
        self.assertTrue(self.held())

    def test_killed_while_it_asks_it_leaves_the_screen_to_its_guard(self):
        program = self.start_guarded()
        self.screen.press("a")
        self.question(program)
        self.take_over(program, signal.SIGKILL)

    def test_another_guard_takes_the_place_of_one_that_is_gone(self):
        program = self.start_guarded()
        first = self._guards()
        os.kill(first[0], signal.SIGKILL)
        wait_until(lambda: self._guards() not in ([], first), "another guard")
        self.shows(self.small, "the picture")
        self.take_over(program, signal.SIGKILL)

    def test_what_others_put_on_the_screen_comes_down(self):
        program = self.start_guarded()
        root = self.other.screen().root

        def top_of(window):
            while (parent := window.query_tree().parent) != root:
                window = parent
            return window

        for managed in (False, True):
            window = self.map_red(managed)
            time.sleep(0.3)
            self.shows(self.small, "the picture above the window of another program")
            # Where the stage is not, on other displays, the cover is.
            wait_until(lambda: self.whole_above(top_of(window)) == 2,
                       lambda: f"stage and cover above the window, not {self.whole_above(top_of(window))}")
        self.screen.press("a")
        self.question(program)
        thief = self.map_red(False)
        thief.raise_window()
        thief.set_input_focus(X.RevertToNone, X.CurrentTime)
        self.other.sync()
        self.enter(_PASSWORD)
        self.assertEqual(program.wait_end(), 0)

    def test_who_takes_the_focus_gets_no_key(self):
        program = self.start_guarded()
        thief = self.map_red(False)
        self.shows(self.small, "the picture above the window of another program")
        self.screen.press("a")
        self.question(program)
        for character in _PASSWORD:
            thief.set_input_focus(X.RevertToNone, X.CurrentTime)
            self.other.sync()
            self.screen.type(character)
        self.screen.press("Return")
        self.assertEqual(program.wait_end(), 0)

    def test_a_key_that_is_held_enters_nothing(self):
        program = self.start_guarded()
        with self.screen.held("Return"):
            question = self.question(program)
            time.sleep(1)
            question.find("push button", "Cancel")
            self.assertTrue(question.all("text")[0].has("enabled"))
        self.enter(_PASSWORD)
        self.assertEqual(program.wait_end(), 0)

    def test_a_key_that_is_held_enters_nothing_at_the_guard(self):
        program = self.start_guarded()
        self.take_over(program, signal.SIGKILL)
        with self.screen.held("Return"):
            self.guard_asks()
            time.sleep(1)
        self.enter(_PASSWORD)
        wait_until(lambda: not self._guards(), "the end of the guard")

    def test_several_keys_at_once_are_one_question_at_the_guard(self):
        program = self.start_guarded()
        self.take_over(program, signal.SIGKILL)
        guard, = self._guards()
        os.kill(guard, signal.SIGSTOP)
        for key in "abc":
            self.screen.press(key)
        os.kill(guard, signal.SIGCONT)
        self.guard_asks()
        self.screen.press("Escape")
        self.black()
        time.sleep(0.3)
        self.black()

    def test_keys_of_the_window_manager_and_a_close_request_lead_nowhere(self):
        program = self.start_guarded()
        for keys in ("Alt+F4", "Alt+Tab", "Ctrl+Alt+Delete"):
            self.screen.press(keys)
            self.question(program)
            self.screen.press("Escape")
            self.shows(self.small, "the picture after " + keys)
        self.assertTrue(self.held())

    def test_a_picture_that_cannot_be_shown_does_not_uncover_the_screen(self):
        self.pictures()
        program = self.begin("none.bmp", "small.bmp", interval=60)
        box = program.message_box()
        self.assertTrue(box.text.startswith("Unable to view image:"), box.text)
        self.assertTrue(self.held())
        self.assertEqual(self.screen.grab(0, 0, 1, 1).getpixel((0, 0)), (64, 0, 0))
        self.screen.press("Return")
        self.question(program)
        self.enter(_PASSWORD)
        self.assertEqual(program.wait_end(), 0)
        self.assertEqual(self.logind.calls(), [])

    def test_a_second_one_ends_at_once(self):
        program = self.start_guarded()
        second = self.start("SCRNSAVE", os.path.join(self.home.pictures, "show.tvs"), environment=self.environment)
        self.assertEqual(second.wait_end(), 0)
        self.assertTrue(program.running())

    def test_without_the_switch_nothing_is_asked(self):
        self.is_not_guarded(switch=None)
        self.is_not_guarded(switch="0")

    def test_an_account_whose_password_nobody_can_enter_is_not_locked_out(self):
        for state in ("NP", "L"):
            self._stand_in(state)
            self.is_not_guarded()

    def test_a_desktop_that_locks_is_left_to_it(self):
        self.is_not_guarded(environment={"XDG_CURRENT_DESKTOP": "GNOME"})
        self.is_not_guarded(environment={"WAYLAND_DISPLAY": "wayland-0"})
        self.is_not_guarded(environment={"XDG_SESSION_TYPE": "wayland"})

    def is_not_guarded_beside(self, name):
        program = os.path.join(self.home.folder, name)
        shutil.copy("/bin/sleep", program)
        process = subprocess.Popen([program, "600"], env=self.screen.environment)
        try:
            self.is_not_guarded()
        finally:
            process.kill()
            process.wait()

    def test_so_is_a_program_that_locks(self):
        self.is_not_guarded_beside("xss-lock")

    def test_nor_is_a_console_guarded_from_which_the_server_was_started(self):
        self.is_not_guarded_beside("xinit")

    def test_a_keyboard_that_breaks_grabs_is_not_relied_on(self):
        option = ["setxkbmap", "-display", self.screen.environment["DISPLAY"], "-option"]
        self.addCleanup(subprocess.run, [*option, ""], check=True)
        subprocess.run([*option, "grab:break_actions"], check=True)
        self.is_not_guarded()

    def test_nor_is_one_that_does_not_tell_its_rules(self):
        root = self.other.screen().root
        rules = self.other.get_atom("_XKB_RULES_NAMES")
        told = root.get_full_property(rules, X.AnyPropertyType)
        self.addCleanup(self.other.sync)
        self.addCleanup(root.change_property, rules, Xatom.STRING, 8, told.value)
        root.delete_property(rules)
        self.other.sync()
        self.is_not_guarded()

    def test_the_settings_tell_and_turn_it(self):
        self.pictures()
        self.home.write_settings("[Viewer]\n")
        program = self.start("/c", environment=self.environment)
        dialog = self.dialog(program, _SETTINGS)
        dialog.find("label", "No password is asked for: see Change.")
        dialog.find("push button", "Change").act()
        box = program.message_box()
        self.assertIn("Is the screen saver to ask for it before it ends?", box.text)
        box.press("Yes")
        dialog.find("label", "The password of your account is asked for.")
        self.screen.press("Escape")
        self.assertEqual(program.wait_end(), 0)
        self.start_guarded(switch=None)


class WithAnotherGuard(GuardedTest):
    """The program lies elsewhere, with helpers of a test's own beside it."""

    def guard_by(self, *lines):
        """The environment of a saver whose guard is a script of these lines; without any, there is none."""
        folder = os.path.join(self.home.folder, "elsewhere")
        helpers = os.path.join(folder, "libexec", "tavrix")
        os.makedirs(helpers, exist_ok=True)
        if lines:
            checker, guard = (os.path.join(helpers, name) for name in ("tavrix-password", _GUARD))
            if not os.path.exists(checker):
                os.symlink(os.path.join(_HELPERS, "tavrix-password"), checker)
            with open(guard, "w", encoding="utf-8") as file:
                file.write("\n".join(["#!/bin/sh", *lines, ""]))
            os.chmod(guard, 0o755)
        return {"TAVRIX_EXECUTABLE": os.path.join(folder, "bin", "tavrix")}

    def test_without_helpers_nothing_is_asked(self):
        self.is_not_guarded(environment=self.guard_by())

    def test_where_no_guard_comes_up_there_is_no_saver(self):
        self.pictures()
        for lines in (["exit 1"], ["echo 0", "exec sleep 600"], ["echo none", "exec sleep 600"]):
            program = self.begin(environment=self.guard_by(*lines))
            self.assertEqual(program.wait_end(), 0, lines)
            wait_until(lambda: not self._guards(), "the end of what was no guard")
            self.assertFalse(self.held())

    def test_a_guard_that_cannot_be_started_again_is_tried_again(self):
        starts = os.path.join(self.home.folder, "starts")
        real = os.path.join(_HELPERS, _GUARD)
        program = self.start_guarded(environment=self.guard_by(
            f"echo x >> '{starts}'", f"[ $(wc -l < '{starts}') = 2 ] && exit 1", f"exec '{real}' \"$@\""))
        first = self._guards()
        os.kill(first[0], signal.SIGKILL)

        def third():
            with open(starts, encoding="utf-8") as file:
                return len(file.readlines()) == 3 and len(self._guards()) == 1
        wait_until(third, "a third start")
        time.sleep(1.5)
        self.assertTrue(third(), "one is enough")
        self.shows(self.small, "the picture")
        wait_until(lambda: self.whole_above(self.desktop) == 2, "stage and cover")
        self.take_over(program, signal.SIGKILL)

    def test_a_guard_whose_program_is_gone_for_a_while_is_started_again(self):
        program = self.start_guarded(environment=self.guard_by(f"exec '{os.path.join(_HELPERS, _GUARD)}' \"$@\""))
        script = os.path.join(self.home.folder, "elsewhere", "libexec", "tavrix", _GUARD)
        os.rename(script, script + ".gone")
        os.kill(self._guards()[0], signal.SIGKILL)
        time.sleep(2.5)  # it is tried each second
        self.assertEqual(self._guards(), [])
        self.assertTrue(self.held())
        os.rename(script + ".gone", script)
        wait_until(lambda: len(self._guards()) == 1, "another guard")
        wait_until(lambda: self.whole_above(self.desktop) == 2, "stage and cover")
        self.take_over(program, signal.SIGKILL)

    def start_with_a_silent_second_guard(self):
        """A saver whose guard was killed, and whose next one says nothing; the saver and that guard."""
        starts, silent = (os.path.join(self.home.folder, name) for name in ("starts", "silent"))
        real = os.path.join(_HELPERS, _GUARD)
        program = self.start_guarded(environment=self.guard_by(
            f"echo x >> '{starts}'", f"[ $(wc -l < '{starts}') = 2 ] && echo $$ > '{silent}' && exec sleep 600",
            f"exec '{real}' \"$@\""))
        os.kill(self._guards()[0], signal.SIGKILL)

        def started():
            with contextlib.suppress(FileNotFoundError), open(silent, encoding="utf-8") as file:
                return int(file.read() or 0)
            return 0
        return program, wait_until(started, "the guard that says nothing")

    def runs(self, process):
        try:
            with open(f"/proc/{process}/stat", encoding="utf-8") as file:
                return file.read().rpartition(")")[2].split()[0] != "Z"
        except FileNotFoundError:
            return False

    def test_beside_a_guard_that_says_nothing_the_window_answers_and_stays_guarded(self):
        program, silent = self.start_with_a_silent_second_guard()
        for entered in ("wrong", ""):
            self.screen.press("a")
            question = self.question(program)
            if entered:
                self.enter(entered)
                question.find("label", "The password is wrong.")
                self.screen.press("Return")
            else:
                self.screen.press("Escape")
            self.shows(self.small, "the picture")
            self.assertTrue(self.held())
        wait_until(lambda: len(self._guards()) == 1, "another guard in its place", limit=60)
        wait_until(lambda: not self.runs(silent), "the end of the one that said nothing")
        wait_until(lambda: self.whole_above(self.desktop) == 2, "stage and cover")
        self.take_over(program, signal.SIGKILL)

    def test_the_right_password_ends_the_saver_beside_it_and_it_goes_too(self):
        program, silent = self.start_with_a_silent_second_guard()
        self.screen.press("a")
        self.question(program)
        self.enter(_PASSWORD)
        self.assertEqual(program.wait_end(), 0)
        wait_until(lambda: not self.runs(silent), "its end")
        self.assertFalse(self.held())


class OnTwoScreens(GuardedTest):
    session_options = {"window_manager": "openbox", "screens": 2}

    def test_a_cover_of_one_is_none(self):
        self.is_not_guarded()


class UnderAnotherWindowManager(GuardedTest):
    """With one that places and stacks by rules of its own."""

    session_options = {"window_manager": "metacity", "repeat": (200, 30)}

    test_it_ends_with_the_right_password_only = GuardedSaverTest.test_it_ends_with_the_right_password_only
    test_killed_it_leaves_the_screen_to_its_guard = GuardedSaverTest.test_killed_it_leaves_the_screen_to_its_guard
    test_what_others_put_on_the_screen_comes_down = GuardedSaverTest.test_what_others_put_on_the_screen_comes_down


class OnAGrowingScreen(GuardedTest):
    def test_a_screen_that_grows_is_covered(self):
        root = self.other.screen().root
        resources = root.xrandr_get_screen_resources()
        small = (self.screen.width // 2, self.screen.height // 2)
        for crtc in resources.crtcs:
            self.other.xrandr_set_crtc_config(crtc, resources.config_timestamp, 0, 0, 0, 1, [])
        root.xrandr_set_screen_size(*small, 200, 150)
        self.other.sync()
        self.assertEqual((root.get_geometry().width, root.get_geometry().height), small)
        self._put_desktop()
        self.start_lone_guard()[1].close()
        wait_until(self.held, "the guard's hold")
        root.xrandr_set_screen_size(self.screen.width, self.screen.height, 400, 300)
        self.other.sync()
        self.black()
