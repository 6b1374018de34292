#!/usr/bin/env python3
"""500 files of 1 MiB are carried to another folder, side by side with the commands of the system.

    bench/filing/compare.py [BENCH_FILING [ROUNDS [FILES]]]

New copies are compared with cp. What replaces a file, and a move to another file system (/dev/shm), is on the disk before
anything goes, so it is compared with cp, sync of the file and mv (and rm). Both take turns; the medians are told in
milliseconds, and their ratio, and the ratio of the processor's time, which says more on a busy machine.
"""
import os
import resource
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "common"))
from memory_folder import memory_folder  # noqa: E402

BENCH = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "build", "release", "bin", "bench_filing")
COPY = 'cp -p "$1"/* "$2"/'
REPLACE = 'cd "$1" && for f in *; do cp -p "$f" "$2/.$f" && sync "$2/.$f" && mv "$2/.$f" "$2/$f"; done'
MOVE = 'cd "$1" && for f in *; do cp -p "$f" "$2/.$f" && sync "$2/.$f" && mv "$2/.$f" "$2/$f" && rm "$f"; done'


def fill(folder, count):
    for number in range(count):
        with open(os.path.join(folder, f"picture {number:03}.bmp"), "wb") as file:
            file.write(os.urandom(1 << 20))


def ours(program, act, source, target):
    return float(subprocess.run([program, act, source, target], check=True, capture_output=True).stdout)


def theirs(command, source, target):
    start = time.perf_counter()
    subprocess.run(["sh", "-c", command, "sh", source, target], check=True)
    return (time.perf_counter() - start) * 1e3


def compare(name, rounds, one, other):
    took = {one: [], other: []}
    worked = {one: [], other: []}
    for _ in range(rounds):
        for run in (one, other):
            os.sync()
            before = resource.getrusage(resource.RUSAGE_CHILDREN)
            took[run].append(run())
            after = resource.getrusage(resource.RUSAGE_CHILDREN)
            worked[run].append(after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime)
    a, b = statistics.median(took[one]), statistics.median(took[other])
    processor = statistics.median(worked[one]) / statistics.median(worked[other])
    print(f"{name:<28} ours {a:8.0f}   theirs {b:8.0f}   ratio {a / b:5.2f}   of processor time {processor:5.2f}",
          flush=True)


def main():
    program = sys.argv[1] if len(sys.argv) > 1 else BENCH
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 5
    count = int(sys.argv[3]) if len(sys.argv) > 3 else 500
    with tempfile.TemporaryDirectory() as folder, memory_folder("bench_filing") as elsewhere:
        source, target = os.path.join(folder, "source"), os.path.join(folder, "target")
        os.mkdir(source)
        fill(source, count)

        def anew(run):
            def timed():
                shutil.rmtree(target, ignore_errors=True)
                os.mkdir(target)
                return run()
            return timed
        compare("new copies", rounds, anew(lambda: ours(program, "copy", source, target)),
                anew(lambda: theirs(COPY, source, target)))
        compare("copies that replace", rounds, lambda: ours(program, "copy", source, target),
                lambda: theirs(REPLACE, source, target))

        def from_elsewhere(run):
            def timed():
                shutil.rmtree(target, ignore_errors=True)
                os.mkdir(target)
                fill(elsewhere, min(count, 100))
                return run()
            return timed
        compare("moves across file systems", rounds, from_elsewhere(lambda: ours(program, "move", elsewhere, target)),
                from_elsewhere(lambda: theirs(MOVE, elsewhere, target)))


if __name__ == "__main__":
    main()
