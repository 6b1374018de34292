#!/usr/bin/env python3
"""The fixed edits of a bitmap of 24 megapixels, side by side with ImageMagick's from file to file.

    bench/edits/compare.py [BENCH_EDITS [ROUNDS]]

Each edit is made of an image that was opened, and of one that was edited before. All take turns, so that other work on
the machine meets them alike; the medians of the elapsed times and of the processor's are told, in milliseconds, and the
best elapsed times. On a virtual machine the best ones tell: it gives memory that nobody has used for two seconds back to
its host, and 100 MB that come from there again take four times as long as an edit does. ImageMagick writes to a file that
is not there yet, as the first edit of an opened image does.
"""
import json
import os
import resource
import statistics
import subprocess
import sys
import tempfile
import time

BENCH = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "build", "release", "bin", "bench_edits")
WIDTH, HEIGHT = 6000, 4000
COMMANDS = {
    "Clockwise": ["-rotate", "90"],
    "CounterClockwise": ["-rotate", "270"],
    "HalfTurn": ["-rotate", "180"],
    "FlipHorizontally": ["-flop"],
    "FlipVertically": ["-flip"],
    "Smaller25": ["-sample", "75%"],
    "Smaller50": ["-sample", "50%"],
    "Larger25": ["-sample", "125%"],
    "Larger50": ["-sample", "150%"],
}


def photo(path):
    header = b"BM" + (54 + 3 * WIDTH * HEIGHT).to_bytes(4, "little") + bytes(4) + (54).to_bytes(4, "little")
    header += (40).to_bytes(4, "little") + WIDTH.to_bytes(4, "little") + HEIGHT.to_bytes(4, "little")
    header += (1).to_bytes(2, "little") + (24).to_bytes(2, "little") + bytes(24)
    with open(path, "wb") as file:
        file.write(header + os.urandom(3 * WIDTH * HEIGHT))


def ours(program, command, start):
    output = subprocess.run(
        [program, f"--benchmark_filter=^{start}/{command}/", "--benchmark_min_time=0.01", "--benchmark_format=json"],
        check=True, capture_output=True).stdout
    measured = json.loads(output)["benchmarks"][0]
    return measured["real_time"], measured["cpu_time"]


def processor_time():
    usage = resource.getrusage(resource.RUSAGE_CHILDREN)
    return (usage.ru_utime + usage.ru_stime) * 1e3


def theirs(source, target, options):
    if os.path.exists(target):
        os.remove(target)
    os.sync()
    used = processor_time()
    start = time.perf_counter()
    subprocess.run(["/usr/bin/convert", source, *options, "BMP3:" + target], check=True)
    return (time.perf_counter() - start) * 1e3, processor_time() - used


def main():
    program = sys.argv[1] if len(sys.argv) > 1 else BENCH
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 7
    with tempfile.TemporaryDirectory() as folder:
        source = os.path.join(folder, "photo.bmp")
        photo(source)
        for command, options in COMMANDS.items():
            target = os.path.join(folder, "out.bmp")
            starts = ("Opened", "Edited")
            runs = [([ours(program, command, start) for start in starts], theirs(source, target, options))
                    for _ in range(rounds)]
            for what, at, of in (("best", 0, min), ("elapsed", 0, statistics.median),
                                 ("processor", 1, statistics.median)):
                other = of(run[1][at] for run in runs)
                for number, start in enumerate(starts):
                    own = of(run[0][number][at] for run in runs)
                    print(f"{command:18} {start:8} {what:9} {own:6.0f}  ImageMagick {other:6.0f}"
                          f"  {other / own:5.1f} times as fast", flush=True)


main()
