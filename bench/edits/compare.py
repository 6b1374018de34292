#!/usr/bin/env python3
"""The fixed edits of a bitmap of 24 megapixels, side by side with ImageMagick's from file to file.

    bench/edits/compare.py [BENCH_EDITS [ROUNDS]]

Each edit is made of an image that was opened, and of one that was edited before. All take turns, so that other work on
the machine meets them alike; the medians of the elapsed times and of the processor's are told, in milliseconds.
ImageMagick writes to a file that is not there yet, as the first edit of an opened image does.

Before each run memory is used and given back. A virtual machine gives what nobody has used for some seconds back to its
host, and waits for it again, ten times as long as the fastest edits take: that would be measured, and not the edits.
"""
import json
import mmap
import os
import resource
import statistics
import subprocess
import sys
import tempfile
import time

BENCH = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "build", "release", "bin", "bench_edits")
WIDTH, HEIGHT = 6000, 4000
FREE_MEMORY = 640 << 20  # as bench_edits does before each of its runs
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


def warm_memory():
    with mmap.mmap(-1, FREE_MEMORY, flags=mmap.MAP_PRIVATE | mmap.MAP_ANONYMOUS) as memory:
        memory[::mmap.PAGESIZE] = bytes(FREE_MEMORY // mmap.PAGESIZE)


def theirs(source, target, options):
    if os.path.exists(target):
        os.remove(target)
    os.sync()
    warm_memory()
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
            for what, at in (("elapsed", 0), ("processor", 1)):
                other = statistics.median(run[1][at] for run in runs)
                for number, start in enumerate(starts):
                    own = statistics.median(run[0][number][at] for run in runs)
                    print(f"{command:18} {start:8} {what:9} {own:6.0f}  ImageMagick {other:6.0f}"
                          f"  {other / own:5.1f} times as fast", flush=True)


main()
