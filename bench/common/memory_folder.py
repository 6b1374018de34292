"""A folder in memory for the files of a benchmark, also where it is killed: the next run removes what that has left."""

import contextlib
import fcntl
import os
import re
import shutil
import tempfile

_IN_MEMORY = "/dev/shm"


@contextlib.contextmanager
def memory_folder(name):
    """An empty folder of this run, gone at its end; among the temporary ones where there are none in memory."""
    parent = _IN_MEMORY if os.access(_IN_MEMORY, os.W_OK) else tempfile.gettempdir()
    turn = os.open(parent, os.O_RDONLY)
    try:
        fcntl.flock(turn, fcntl.LOCK_EX)  # until the own one is locked, too
        _remove_left(parent, name)
        path = os.path.join(parent, f"{name}.{os.getpid()}")
        os.mkdir(path, 0o700)
        held = os.open(path, os.O_RDONLY)
        fcntl.flock(held, fcntl.LOCK_EX)
    finally:
        os.close(turn)
    try:
        yield path
    finally:
        shutil.rmtree(path, ignore_errors=True)
        os.close(held)


def _remove_left(parent, name):
    """Whoever lives holds the lock of its folder."""
    for entry in os.scandir(parent):
        if not re.fullmatch(re.escape(name) + r"\.\d+", entry.name) or not entry.is_dir(follow_symlinks=False) or \
                entry.stat(follow_symlinks=False).st_uid != os.geteuid():
            continue
        folder = os.open(entry.path, os.O_RDONLY | os.O_NOFOLLOW)
        try:
            fcntl.flock(folder, fcntl.LOCK_EX | fcntl.LOCK_NB)
            shutil.rmtree(entry.path, ignore_errors=True)
        except BlockingIOError:
            pass
        finally:
            os.close(folder)
