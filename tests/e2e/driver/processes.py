"""Child processes that never outlive the one that started them."""

import ctypes
import os
import signal
import subprocess
import time
import uuid

_PR_SET_PDEATHSIG = 1
_libc = ctypes.CDLL(None)


_INTERRUPTS = {signal.SIGINT, signal.SIGTERM, signal.SIGHUP}


def _in_child():
    signal.pthread_sigmask(signal.SIG_UNBLOCK, _INTERRUPTS)
    _libc.prctl(_PR_SET_PDEATHSIG, signal.SIGKILL, 0, 0, 0)


class Children:
    """Starts processes that carry a mark in their environment, which their own children inherit; end_all() ends
    every process with the mark, by its id."""

    def __init__(self):
        self._mark = uuid.uuid4().hex
        self._started = []

    def start(self, command, environment, log, **options):
        # An interruption waits until the process is known.
        before = signal.pthread_sigmask(signal.SIG_BLOCK, _INTERRUPTS)
        try:
            with open(log, "ab") as output:
                process = subprocess.Popen(
                    command,
                    env={**environment, "TAVRIX_TEST_MARK": self._mark},
                    stdin=subprocess.DEVNULL,
                    stdout=output,
                    stderr=output,
                    start_new_session=True,
                    preexec_fn=_in_child,
                    **options,
                )
            self._started.append(process)
        finally:
            signal.pthread_sigmask(signal.SIG_SETMASK, before)
        return process

    def end(self, process, grace=3.0):
        if process.poll() is None:
            process.terminate()
            try:
                process.wait(grace)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait(grace)
        if process in self._started:
            self._started.remove(process)

    def end_all(self):
        for process in reversed(list(self._started)):
            self.end(process)
        for number in (signal.SIGTERM, signal.SIGKILL):
            end = time.monotonic() + 2.0
            while (left := self._marked()) and time.monotonic() < end:
                for pid in left:
                    try:
                        os.kill(pid, number)
                    except ProcessLookupError:
                        pass
                time.sleep(0.02)

    def _marked(self):
        mark = b"TAVRIX_TEST_MARK=" + self._mark.encode()
        found = []
        for name in os.listdir("/proc"):
            if name.isdigit() and int(name) != os.getpid():
                try:
                    with open(f"/proc/{name}/environ", "rb") as file:
                        if mark in file.read().split(b"\0"):
                            found.append(int(name))
                except OSError:
                    pass
        return found
