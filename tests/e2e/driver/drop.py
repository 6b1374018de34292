"""Drops files, or other addresses, on a window, as a file manager does: the source's side of the XDND protocol, version 5."""

from urllib.parse import quote

from Xlib import X, Xatom
from Xlib.protocol import event

from .waiting import wait_until


class DropSource:
    def __init__(self, screen, paths, addresses=()):
        self._screen = screen
        self._x, self._root, self._window = screen.new_window()
        files = [f"file://{quote(path)}" for path in paths]
        self._list = "".join(f"{address}\r\n" for address in [*files, *addresses]).encode()
        self._uris = screen.atom("text/uri-list")

    def drop_on(self, window):
        """Drops the files in the middle of the window; gives whether it took them."""
        x, y = window.centre
        copy = self._screen.atom("XdndActionCopy")
        self._window.set_selection_owner(self._screen.atom("XdndSelection"), X.CurrentTime)
        self._screen.move_pointer(x, y)
        self._send(window, "XdndEnter", 5 << 24, self._uris, 0, 0)
        self._send(window, "XdndPosition", 0, x << 16 | y, X.CurrentTime, copy)
        if not self._answer("XdndStatus")[1] & 1:
            self._send(window, "XdndLeave", 0, 0, 0, 0)
            return False
        self._send(window, "XdndDrop", 0, X.CurrentTime, 0, 0)
        return bool(self._answer("XdndFinished")[1] & 1)

    def _send(self, window, kind, *numbers):
        target = self._x.create_resource_object("window", window.id)
        target.send_event(event.ClientMessage(window=target, client_type=self._screen.atom(kind),
                                              data=(32, [self._window.id, *numbers])))
        self._x.flush()

    def _answer(self, kind):
        """The numbers of the target's answer; meanwhile it is given what it asks for."""
        answers = []

        def look():
            while self._x.pending_events():
                received = self._x.next_event()
                if received.type == X.SelectionRequest:
                    self._give(received)
                elif received.type == X.ClientMessage and received.client_type == self._screen.atom(kind):
                    answers.append(list(received.data[1]))
            return answers
        return wait_until(look, f"{kind} from the window under the drop")[0]

    def _give(self, request):
        targets = self._screen.atom("TARGETS")
        given = request.property
        if request.target == self._uris:
            request.requestor.change_property(request.property, self._uris, 8, self._list)
        elif request.target == targets:
            request.requestor.change_property(request.property, Xatom.ATOM, 32, [targets, self._uris])
        else:
            given = X.NONE
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection, target=request.target,
            property=given))
        self._x.flush()
