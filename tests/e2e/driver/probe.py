"""A window of the forms layer that tells the codes of the keys that reach it."""

import os

from .waiting import wait_until

PROBE = os.environ.get("TAVRIX_KEY_PROBE") or os.path.join(
    os.path.dirname(__file__), "..", "..", "..", "build", "release", "tests", "e2e", "tavrix_key_probe")


class KeyProbe:
    def __init__(self, session, home):
        self._screen, self._children = session.screen, session.children
        self._log = os.path.join(home.folder, "keys.log")
        open(self._log, "w").close()
        self._process = session.children.start([PROBE], {**session.environment, **home.environment}, self._log)
        try:
            wait_until(lambda: "ready" in self._lines(), "the window that tells keys")
            window = wait_until(lambda: next((w for w in self._screen.windows() if w.pid == self._process.pid), None),
                                "its window")
            wait_until(lambda: self._screen.active() == window.id, "the keyboard on it")
        except BaseException:
            self.__exit__()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._children.end(self._process)

    def _lines(self):
        with open(self._log, encoding="utf-8", errors="replace") as file:
            return file.read().splitlines()

    def codes_of(self, *places):
        """The codes of all presses that come from this combination."""
        known = len(self._lines())
        self._screen.press_place(*places)
        wait_until(lambda: len(self._lines()) >= known + len(places), "the presses")
        return [int(line) for line in self._lines()[known:]]

    def code_of(self, place):
        return self.codes_of(place)[0]
