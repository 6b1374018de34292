"""Everything that a test needs around the program: a screen, the buses and private folders."""

import os
import shutil
import tempfile

from .accessibility import AccessibilityBus
from .processes import Children
from .screen import Screen

_KEPT = ("PATH", "LD_LIBRARY_PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS", "TZ")


class AnySession:
    """The screen that `make_screen` gives, and an accessibility bus. close() ends every process and removes every file."""

    def __init__(self, make_screen, **variables):
        self.folder = tempfile.mkdtemp(prefix="tavrix-e2e.")
        self.children = Children()
        try:
            environment = {name: os.environ[name] for name in _KEPT if name in os.environ}
            runtime = os.path.join(self.folder, "runtime")
            os.mkdir(runtime, 0o700)
            environment.update(HOME=self.folder, XDG_RUNTIME_DIR=runtime, TMPDIR=self.folder, LANG="C.UTF-8",
                               LC_ALL="C.UTF-8", GSETTINGS_BACKEND="memory", **variables)
            self.screen = make_screen(self.children, self.folder, environment)
            self.bus = AccessibilityBus(self.children, self.screen)
            self.environment = {**self.screen.environment, **self.bus.environment}
        except BaseException:
            self.close()
            raise

    def close(self):
        self.children.end_all()
        for part in ("bus", "screen"):
            if hasattr(self, part):
                try:
                    getattr(self, part).close()
                except Exception:  # the servers are gone already; a connection may notice
                    pass
        shutil.rmtree(self.folder, ignore_errors=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()


class Session(AnySession):
    """An X screen with a window manager."""

    def __init__(self, **screen_options):
        super().__init__(
            lambda children, folder, environment: Screen(children, folder, environment=environment, **screen_options),
            QT_QPA_PLATFORM="xcb")
