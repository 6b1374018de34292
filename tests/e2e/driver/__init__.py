"""Drives the program from outside: through the window system and the accessibility bus, as a person would."""

from .pings import Pings
from .processes import Children
from .program import Home, Program, drive_path, recent_caption
from .screen import Screen, Window
from .session import Session
from .sleeping import SleepingDisk
from .waiting import NotInTime, wait_unchanged, wait_until

__all__ = ["Children", "Home", "NotInTime", "Pings", "Program", "Screen", "Session", "SleepingDisk", "Window",
           "drive_path", "recent_caption", "wait_unchanged", "wait_until"]
