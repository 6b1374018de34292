"""Whether a window answers: the window system's ping (_NET_WM_PING)."""

import threading
import time

from Xlib import X, display
from Xlib.protocol import event

_PAUSE = 0.004  # seconds between two pings


class Pings:
    """Pings one window all the time, from a thread with a connection of its own."""

    def __init__(self, screen, window):
        self._x = display.Display(screen.environment["DISPLAY"])
        self._x.set_error_handler(lambda *_: None)
        self._root = self._x.screen().root
        self._root.change_attributes(event_mask=X.StructureNotifyMask | X.SubstructureNotifyMask)
        self._window = window.id
        self._answers = []
        self._over = False
        self._thread = threading.Thread(target=self._run, daemon=True)
        self._thread.start()

    def _run(self):
        protocols, ping = self._x.get_atom("WM_PROTOCOLS"), self._x.get_atom("_NET_WM_PING")
        window = self._x.create_resource_object("window", self._window)
        number = 0
        while not self._over:
            number += 1
            begin = time.monotonic()
            window.send_event(event.ClientMessage(window=window, client_type=protocols,
                                                  data=(32, [ping, number, self._window, 0, 0])))
            self._x.flush()
            answered = False
            while not answered and not self._over:
                if not self._x.pending_events():
                    time.sleep(0.0005)
                    continue
                came = self._x.next_event()
                answered = (came.type == X.ClientMessage and came.client_type == protocols
                            and tuple(came.data[1][:3]) == (ping, number, self._window))
            self._answers.append((begin, time.monotonic()))
            time.sleep(_PAUSE)

    def since(self, begin):
        """The answers that came after a time, in seconds, sorted."""
        return sorted(end - start for start, end in list(self._answers) if end > begin)

    def stop(self):
        self._over = True
        self._thread.join()
        self._x.close()
