"""A window that waits for another program to draw in it, as a screen saver's daemon makes one for each display."""

from Xlib import X, Xatom, display


class HostWindow:
    """It lies above all others, without a frame, on a connection of its own."""

    def __init__(self, screen, x=0, y=0, width=None, height=None):
        self._x = display.Display(screen.environment["DISPLAY"])
        self._x.set_error_handler(lambda *_: None)
        self.width, self.height = width or screen.width, height or screen.height
        self.x, self.y = x, y
        self._screen = screen
        self._window = self._x.screen().root.create_window(
            x, y, self.width, self.height, 0, X.CopyFromParent, override_redirect=True,
            background_pixel=self._x.screen().black_pixel)
        self._window.map()
        self._window.raise_window()
        self._x.sync()
        self.id = self._window.id

    def resize(self, width, height):
        self.width, self.height = width, height
        self._window.configure(width=width, height=height)
        self._x.sync()

    def mark(self, name, text):
        """Sets a property of the window."""
        self._window.change_property(self._x.get_atom(name), Xatom.STRING, 8, text.encode())
        self._x.sync()

    def children(self):
        return [child.id for child in self._window.query_tree().children]

    def grab(self):
        return self._screen.grab(self.x, self.y, self.width, self.height)

    def destroy(self):
        self._window.destroy()
        self._x.sync()

    def close(self):
        self._x.close()
