#!/usr/bin/env python3
"""A package of a show of 1,000 pictures of 1 MiB, with the program's files, side by side with `cp -r` of the same files.

    bench/package/compare.py [BENCH_PACKAGE [ROUNDS [SLIDES]]]

Both take turns; the medians are told in milliseconds, and their ratio, also of the processor's time, which tells more on a
machine that is busy elsewhere.
"""
import os
import resource
import statistics
import subprocess
import sys
import tempfile
import time

BENCH = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "build", "release", "bin", "bench_package")
LIBRARIES, LIBRARY_BYTES = 130, 850_000  # what a package holds of the program


def fill(folder, names, size):
    os.mkdir(folder)
    for name in names:
        with open(os.path.join(folder, name), "wb") as file:
            file.write(os.urandom(size))


def write_show(path, names):
    lines = ['"Tavrix Slide Show"', '"Version 1.5"', "0", '""', *["0"] * 8]
    for name in names:
        lines += [f'"{name}"', '""']
    with open(path, "w", encoding="utf-8", newline="") as file:
        file.write("".join(line + "\r\n" for line in lines))


def main():
    program = sys.argv[1] if len(sys.argv) > 1 else BENCH
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 3
    count = int(sys.argv[3]) if len(sys.argv) > 3 else 1000
    with tempfile.TemporaryDirectory() as folder:
        show, library = (os.path.join(folder, name) for name in ("show", "library"))
        names = [f"picture {number:04}.bmp" for number in range(count)]
        fill(show, names, 1 << 20)
        fill(library, [f"lib{number}.so" for number in range(LIBRARIES)], LIBRARY_BYTES)
        write_show(os.path.join(show, "show.tvs"), names)

        def ours(target):
            return float(subprocess.run([program, os.path.join(show, "show.tvs"), target, library], check=True,
                                        capture_output=True).stdout)

        def theirs(target):
            start = time.perf_counter()
            subprocess.run(["cp", "-r", show, library, target], check=True)
            return (time.perf_counter() - start) * 1e3

        def processor():
            used = resource.getrusage(resource.RUSAGE_CHILDREN)
            return (used.ru_utime + used.ru_stime) * 1e3

        took, used = {ours: [], theirs: []}, {ours: [], theirs: []}
        for number in range(rounds):
            for run in (ours, theirs):
                # A new folder each time: some file systems make files slowly where others have just been deleted.
                target = os.path.join(folder, f"{run.__name__} {number}")
                os.mkdir(target)
                os.sync()
                before = processor()
                took[run].append(run(target))
                used[run].append(processor() - before)
        for name, times in (("elapsed", took), ("processor", used)):
            a, b = statistics.median(times[ours]), statistics.median(times[theirs])
            print(f"package of {count} slides, {name:<10} ours {a:8.0f}   cp {b:8.0f}   ratio {a / b:5.2f}")


if __name__ == "__main__":
    main()
