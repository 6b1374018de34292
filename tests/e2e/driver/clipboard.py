"""Other programs at the clipboard, as the X conventions for selections have it: one that reads, one that has something
to offer, and the desktop's keeper of what programs leave behind."""

import select
import threading
import time

from Xlib import X, Xatom, display
from Xlib.protocol import event

from .waiting import NotInTime

_LIMIT = 10.0  # seconds for one answer
_WHOLE = 100_000  # bytes; more goes piece by piece
_NO_DATA = ("TARGETS", "MULTIPLE", "TIMESTAMP", "SAVE_TARGETS", "DELETE", "INSERT_PROPERTY", "INSERT_SELECTION")


class _Client:
    """A connection of its own with one unmapped window."""

    def __init__(self, screen):
        self._x = display.Display(screen.environment["DISPLAY"])
        self._x.set_error_handler(lambda *_: None)  # requestors come and go
        self._window = self._x.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent,
                                                           event_mask=X.PropertyChangeMask)
        self._clipboard = self._x.get_atom("CLIPBOARD")

    def close(self):
        self._x.close()

    def fetch(self, target):
        """What the clipboard's owner gives for a target: its bytes or numbers; None when it refuses."""
        place = self._x.get_atom("DRIVER_DATA")
        self._window.delete_property(place)
        self._window.convert_selection(self._clipboard, self._x.get_atom(target), place, X.CurrentTime)
        answer = self._await(lambda e: e.type == X.SelectionNotify and e.requestor == self._window, target)
        if answer.property == X.NONE:
            return None
        value = self._take(place)
        if value.property_type != self._x.get_atom("INCR"):
            return _content(value)
        pieces = []
        while True:
            self._await(lambda e: e.type == X.PropertyNotify and e.atom == place and e.state == X.PropertyNewValue,
                        target)
            piece = _content(self._take(place))
            if not piece:
                return b"".join(pieces)
            pieces.append(piece)

    def _take(self, place):
        value = self._window.get_full_property(place, X.AnyPropertyType)
        # Deleting it asks for the next piece; what was told before that belongs to this one.
        while self._x.pending_events():
            self._handle(self._x.next_event())
        self._window.delete_property(place)
        self._x.flush()
        return value

    def _await(self, wanted, what):
        end = time.monotonic() + _LIMIT
        while time.monotonic() < end:
            while self._x.pending_events():
                received = self._x.next_event()
                if wanted(received):
                    return received
                self._handle(received)
            select.select([self._x.fileno()], [], [], 0.01)
        raise NotInTime(f"no answer from the clipboard's owner about {what}")

    def _handle(self, received):
        """What else comes."""


def _content(value):
    if value is None:
        return b""
    if value.format != 8:
        return list(value.value)
    return value.value.encode("latin-1") if isinstance(value.value, str) else bytes(value.value)


class Reader(_Client):
    """A program that wants to paste."""

    def targets(self):
        """The names of the kinds that are on offer; none while the clipboard is empty."""
        atoms = self.fetch("TARGETS")
        return [self._x.get_atom_name(atom) for atom in atoms] if atoms else []


class Offer(_Client):
    """A program that has something on the clipboard, by target. It answers until it is closed; a target of None is one
    that it never answers."""

    def __init__(self, screen, kinds):
        super().__init__(screen)
        self._kinds = dict(kinds)
        self._parts = {}
        self.asked = []
        self._begin()
        self._x.sync()
        self._stopped = threading.Event()
        self._thread = threading.Thread(target=self._run, daemon=True)
        self._thread.start()

    def close(self):
        self._stopped.set()
        self._thread.join()
        super().close()

    def _begin(self):
        self._window.set_selection_owner(self._clipboard, X.CurrentTime)

    def _run(self):
        while not self._stopped.is_set():
            while self._x.pending_events():
                self._handle(self._x.next_event())
            select.select([self._x.fileno()], [], [], 0.01)

    def _handle(self, received):
        if received.type == X.SelectionRequest and received.selection == self._clipboard:
            self._give(received)
        elif received.type == X.PropertyNotify and received.state == X.PropertyDelete:
            self._give_part(received.window, received.atom)

    def _give(self, request):
        name = self._x.get_atom_name(request.target)
        self.asked.append(name)
        given = request.property
        if name == "TARGETS":
            atoms = [self._x.get_atom(kind) for kind in ("TARGETS", *self._kinds)]
            request.requestor.change_property(request.property, Xatom.ATOM, 32, atoms)
        elif name not in self._kinds:
            given = X.NONE
        elif self._kinds[name] is None:
            return
        elif len(self._kinds[name]) <= _WHOLE:
            request.requestor.change_property(request.property, request.target, 8, self._kinds[name])
        else:
            data = self._kinds[name]
            parts = [data[at:at + _WHOLE] for at in range(0, len(data), _WHOLE)] + [b""]
            self._parts[request.requestor.id, request.property] = request.target, parts
            request.requestor.change_attributes(event_mask=X.PropertyChangeMask)
            request.requestor.change_property(request.property, self._x.get_atom("INCR"), 32, [len(data)])
        _answer(request, given)
        self._x.flush()

    def _give_part(self, window, place):
        kind, parts = self._parts.get((window.id, place), (None, None))
        if not parts:
            return
        window.change_property(place, kind, 8, parts.pop(0))
        self._x.flush()


class Keeper(Offer):
    """The desktop's clipboard manager: it takes over what a program that ends asks it to save. With a pause it takes its
    time before each question."""

    def __init__(self, screen, pause=0.0):
        self._pause = pause  # seconds
        self.saved = []  # the targets of each time that it was asked
        super().__init__(screen, {})

    def _begin(self):
        self._manager = self._x.get_atom("CLIPBOARD_MANAGER")
        self._window.set_selection_owner(self._manager, X.CurrentTime)

    def _handle(self, received):
        if received.type == X.SelectionRequest and received.selection == self._manager:
            self._save(received)
        else:
            super()._handle(received)

    def _save(self, request):
        names = [self._x.get_atom_name(atom) for atom in self.fetch("TARGETS") or []]
        self._kinds = {}
        for name in names:
            if name not in _NO_DATA:
                time.sleep(self._pause)
                self._kinds[name] = self.fetch(name)
        super()._begin()
        self.saved.append(sorted(self._kinds))
        _answer(request, request.property)
        self._x.flush()


def _answer(request, given):
    request.requestor.send_event(event.SelectionNotify(
        time=request.time, requestor=request.requestor, selection=request.selection, target=request.target,
        property=given))
