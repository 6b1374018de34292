"""A disk that sleeps for as long as a test wants: the folders named "asleep" on it, and the files named "...asleep.*" where
another thread than the first reads them."""

import os

LIBRARY = os.environ.get("TAVRIX_SLEEPING_DISK") or os.path.join(
    os.path.dirname(__file__), "..", "..", "..", "build", "release", "tests", "e2e", "libtavrix_sleeping_disk.so")


class SleepingDisk:
    """Asleep until it is woken. A program that is started with `environment` waits for it."""

    def __init__(self, folder):
        self._sign = os.path.join(folder, "the disk sleeps")
        self.sleep()
        # The library is not that of the sanitizers, which want to be the first one.
        sanitizers = ":".join(filter(None, (os.environ.get("ASAN_OPTIONS"), "verify_asan_link_order=0")))
        self.environment = {"LD_PRELOAD": os.path.realpath(LIBRARY), "TAVRIX_TEST_SLEEP": self._sign,
                            "ASAN_OPTIONS": sanitizers}

    def sleep(self):
        with open(self._sign, "wb"):
            pass

    def wake(self):
        os.remove(self._sign)
