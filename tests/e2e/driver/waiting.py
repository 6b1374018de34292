"""Waiting for a condition, never longer than a limit."""

import time

LIMIT = 15.0  # seconds; long enough for a loaded machine, so that only a real failure reaches it
_POLL = 0.02


class NotInTime(AssertionError):
    """The condition did not come true within its limit."""


def wait_until(condition, what, limit=LIMIT):
    """Polls condition() until it gives something true, and returns that. `what` is a text, or gives one."""
    end = time.monotonic() + limit
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() >= end:
            raise NotInTime(f"not within {limit:g} s: {what() if callable(what) else what}")
        time.sleep(_POLL)


def wait_unchanged(read, what, quiet=0.3, limit=LIMIT):
    """Polls read() until it has given the same value for `quiet` seconds, and returns that value."""
    end = time.monotonic() + limit
    last, since = read(), time.monotonic()
    while True:
        time.sleep(_POLL)
        value, now = read(), time.monotonic()
        if value != last:
            last, since = value, now
        elif now - since >= quiet:
            return value
        if now >= end:
            raise NotInTime(f"does not come to rest within {limit:g} s: {what}")
