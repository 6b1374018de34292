#!/usr/bin/python3
"""Our decoders side by side with those programs of djpeg, netpbm, ImageMagick and GraphicsMagick that are installed.

    bench/decode/compare.py [-n ROUNDS] [--discard] [--decoder TAVRIX_DECODE] [KIND...]

Each program decodes the same picture of 24 megapixels and has all its pixels in memory at its end: ours and the two
Magicks in their own, djpeg and netpbm in a file of /dev/shm, since they keep but a row; with --discard they throw their
rows away, which is less than we have to do. A kind is named by the beginning of its line, such as "bmp" or "tga rle". All take turns, so that other work on the machine meets all alike. Told are the
least processor's time and the least elapsed time in milliseconds (other work only adds), how many times as fast ours is
as the best of the others by either, and the peak memory of our whole process as a multiple of the picture in memory
(4 bytes a pixel).

Metafiles are drawn by libwmf's own program and by the two Magicks where they have it; they draw with less care (no
antialiasing, or none of the raster operations), so that those figures compare whole programs.
"""
import argparse
import os
import shutil
import struct
import subprocess
import sys
import time

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(ROOT, "bench", "common"))
from memory_folder import memory_folder  # noqa: E402

WIDTH, HEIGHT = 6000, 4000


def pillow():
    """Where pictures are made; not in the measuring process, whose size its children would be told to have had."""
    from PIL import Image
    return Image


def photo():
    """Soft shapes under the fine noise of a camera."""
    Image = pillow()

    def channel(step, lift):
        soft = Image.effect_noise((WIDTH // step, HEIGHT // step), 90).resize((WIDTH, HEIGHT), Image.BICUBIC)
        return Image.blend(soft, Image.effect_noise((WIDTH, HEIGHT), 30), 0.15).point(lambda v: min(255, v + lift))
    return Image.merge("RGB", [channel(200, 0), channel(150, 20), channel(300, 10)])


def drawing():
    """A picture of few colours in long runs, as drawn ones have."""
    Image = pillow()
    return Image.effect_noise((WIDTH // 40, HEIGHT // 40), 90).resize((WIDTH, HEIGHT), Image.NEAREST).quantize(200)


def bitmap(path, bits, rows, palette=b"", compression=0):
    offset = 54 + len(palette)
    header = b"BM" + struct.pack("<IHHI", offset + len(rows), 0, 0, offset)
    header += struct.pack("<IiiHHIIiiII", 40, WIDTH, HEIGHT, 1, bits, compression, len(rows), 0, 0,
                          len(palette) // 4, 0)
    with open(path, "wb") as file:
        file.write(header + palette + rows)


def run_length(indices, nibbles):
    """Encoded runs alone; a pixel pair of 4 bits is an index twice."""
    out = bytearray()
    for y in range(HEIGHT - 1, -1, -1):
        row = indices[y * WIDTH:(y + 1) * WIDTH]
        x = 0
        while x < WIDTH:
            end = x + 1
            while end < WIDTH and end - x < 255 and row[end] == row[x]:
                end += 1
            value = row[x] & 15
            out += bytes((end - x, value * 17 if nibbles else row[x]))
            x = end
        out += b"\0\0"
    return bytes(out + b"\0\1")


def pack(image, bits):
    """Rows of 1 or 4 bits a pixel, from below, each a multiple of 4 bytes."""
    if bits == 1:
        data = image.convert("1").tobytes("raw", "1")
        stride = (WIDTH + 7) // 8
    else:
        data = image.quantize(16).tobytes("raw", "P;4")
        stride = WIDTH // 2
    fill = bytes(-stride % 4)
    return b"".join(data[y * stride:(y + 1) * stride] + fill for y in range(HEIGHT - 1, -1, -1))


def colours(count):
    """From dark blue to bright yellow: a map of greys alone would let netpbm write a byte or a bit for a pixel."""
    shares = [i * 200 // (count - 1) for i in range(count)]
    return b"".join(bytes((100 - share // 2, share, share + 55, 0)) for share in shares)


def metafile(path, commands):
    """A placeable Windows metafile of 2000 by 1500 pixels: filled and outlined shapes with brushes of all colours."""
    records = []

    def record(function, *words):
        records.append(struct.pack("<IH", 3 + len(words), function) + struct.pack(f"<{len(words)}H", *words))

    record(0x020B, 0, 0)
    record(0x020C, 1500, 2000)
    record(0x02FA, 0, 2, 0, 0x4020, 0x0060)  # a pen 2 wide, for all of it
    record(0x012D, 0)
    seed = 1
    for number in range(commands):
        values = []
        for _ in range(9):
            seed = (seed * 1103515245 + 12345) & 0x7FFFFFFF
            values.append(seed >> 12)
        record(0x02FC, 0, values[0] & 0xFFFF, values[1] & 0xFF, 0)
        record(0x012D, 1)
        left, top = values[2] % 1800, values[3] % 1300
        if number % 3 == 0:
            record(0x0418, top + 20 + values[5] % 180, left + 20 + values[4] % 180, top, left)
        elif number % 3 == 1:
            record(0x041B, top + 20 + values[5] % 180, left + 20 + values[4] % 180, top, left)
        else:
            points = [(left + v % 200, top + v // 200 % 200) for v in values[4:9]]
            record(0x0324, 5, *(coordinate for point in points for coordinate in point))
        record(0x01F0, 1)
    record(0x0000)
    body = b"".join(records)
    longest = max(len(one) for one in records) // 2
    header = struct.pack("<HHHIHIH", 1, 9, 0x0300, 9 + len(body) // 2, 2, longest, 0)
    frame = struct.pack("<IHhhhhHI", 0x9AC6CDD7, 0, 0, 0, 2000, 1500, 96, 0)
    check = 0
    for (word,) in struct.iter_unpack("<H", frame):
        check ^= word
    with open(path, "wb") as file:
        file.write(frame + struct.pack("<H", check) + header + body)


def kinds(folder):
    """(name, what makes the file, the program made for the format, the file's ending) of each kind."""
    def made(maker):
        kept = os.path.join(folder, maker.__name__ + ".tif")
        if not os.path.exists(kept):
            maker().save(kept)
        return pillow().open(kept)

    def grey():
        return made(photo).convert("L")

    def rows(image, mode):
        data = image.tobytes("raw", mode)
        stride = len(data) // HEIGHT
        return b"".join(data[y * stride:(y + 1) * stride] for y in range(HEIGHT - 1, -1, -1))

    def high_colour():
        data = made(photo).convert("BGR;15").tobytes()
        return b"".join(data[y * 2 * WIDTH:(y + 1) * 2 * WIDTH] for y in range(HEIGHT - 1, -1, -1))

    def saved(name, image, **options):
        return lambda path: image().save(path, name, **options)

    def coloured():
        return made(photo).quantize(256, dither=0)

    def photograph():
        return made(photo)

    def drawn():
        return made(drawing)

    yield "jpeg", saved("JPEG", photograph, quality=92), "djpeg", ".jpg"
    yield "jpeg progressive", saved("JPEG", photograph, quality=92, progressive=True), "djpeg", ".jpg"
    yield "jpeg grey", saved("JPEG", grey, quality=92), "djpeg", ".jpg"
    yield "gif", saved("GIF", coloured, interlace=0), "giftopnm", ".gif"
    yield "gif interlaced", saved("GIF", coloured, interlace=1), "giftopnm", ".gif"
    yield "gif drawing", saved("GIF", drawn, interlace=0), "giftopnm", ".gif"
    yield "bmp 1", lambda path: bitmap(path, 1, pack(grey(), 1), colours(2)), "bmptopnm", ".bmp"
    yield "bmp 4", lambda path: bitmap(path, 4, pack(grey(), 4), colours(16)), "bmptopnm", ".bmp"
    yield "bmp 8", lambda path: bitmap(path, 8, rows(grey(), "L"), colours(256)), "bmptopnm", ".bmp"
    yield "bmp 16", lambda path: bitmap(path, 16, high_colour()), "bmptopnm", ".bmp"
    yield "bmp 24", lambda path: bitmap(path, 24, rows(made(photo), "BGR")), "bmptopnm", ".bmp"
    yield "bmp 32", lambda path: bitmap(path, 32, rows(made(photo), "BGRX")), "bmptopnm", ".bmp"
    yield "bmp rle 8", lambda path: bitmap(path, 8, run_length(drawn().tobytes(), False), colours(256), 1), \
        "bmptopnm", ".bmp"
    yield "bmp rle 4", lambda path: bitmap(path, 4, run_length(drawn().tobytes(), True), colours(16), 2), \
        "bmptopnm", ".bmp"
    yield "tga 24", saved("TGA", photograph), "tgatoppm", ".tga"
    yield "tga rle 24", saved("TGA", photograph, compression="tga_rle"), "tgatoppm", ".tga"
    yield "tga rle 8", saved("TGA", drawn, compression="tga_rle"), "tgatoppm", ".tga"
    yield "pcx 24", saved("PCX", photograph), "pcxtoppm", ".pcx"
    yield "pcx 8", saved("PCX", drawn), "pcxtoppm", ".pcx"
    yield "wmf", lambda path: metafile(path, 6000), "wmf2gd", ".wmf"


def others(own, path):
    """The commands of the programs that are installed for a picture."""
    options = {"wmf2gd": ["-t", "png", "-o", "/dev/stdout", "--maxpect", "--maxwidth=2000", "--maxheight=2000"],
               "djpeg": ["-rgb"]}
    special = [own, *options.get(own, []), path]
    commands = {own: special, "ImageMagick": ["/usr/bin/convert", path, "null:"],
                "GraphicsMagick": ["gm", "convert", path, "null:"]}
    return {name: command for name, command in commands.items() if shutil.which(command[0])}


def in_child(work, *arguments):
    """Large work, done in a process of its own."""
    child = os.fork()
    if child == 0:
        status = 1
        try:
            work(*arguments)
            status = 0
        finally:
            os._exit(status)
    if os.waitpid(child, 0)[1] != 0:
        sys.exit("a picture was not made")


def measure(command, raster):
    """(processor's milliseconds, elapsed milliseconds, peak memory in bytes), or None where the program fails."""
    start = time.perf_counter()
    with open(raster, "wb") as output:
        child = subprocess.Popen(command, stdout=output, stderr=subprocess.DEVNULL)
        _, status, used = os.wait4(child.pid, 0)
    if raster != os.devnull:
        os.remove(raster)
    child.returncode = os.waitstatus_to_exitcode(status)
    if child.returncode != 0:
        return None
    return (used.ru_utime + used.ru_stime) * 1e3, (time.perf_counter() - start) * 1e3, used.ru_maxrss * 1024


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("-n", "--rounds", type=int, default=7)
    parser.add_argument("--discard", action="store_true")
    parser.add_argument("--decoder", default=os.path.join(ROOT, "build", "release", "bin", "tavrix-decode"))
    parser.add_argument("kinds", nargs="*")
    asked = parser.parse_args()
    with memory_folder("bench_decode") as folder:
        for name, make, own, extension in kinds(folder):
            if asked.kinds and not any(name.startswith(kind) for kind in asked.kinds):
                continue
            path = os.path.join(folder, "picture" + extension)
            raster = os.devnull if asked.discard else os.path.join(folder, "raster")
            in_child(make, path)
            commands = {"ours": [asked.decoder, path]} | others(own, path)
            taken = {program: [] for program in commands}
            for _ in range(asked.rounds):
                for program, command in commands.items():
                    taken[program].append(measure(command, raster))
            os.remove(path)
            if None in taken["ours"]:
                sys.exit(f"{name}: tavrix-decode failed")
            good = {program: runs for program, runs in taken.items() if None not in runs}
            processor, elapsed = ({program: min(run[at] for run in runs)
                                   for program, runs in good.items()} for at in (0, 1))
            line = f"{name:17} ours {processor['ours']:6.0f} {elapsed['ours']:6.0f}"
            for program in good:
                if program != "ours":
                    line += f"   {program} {processor[program]:6.0f} {elapsed[program]:6.0f}"
            rivals = [program for program in good if program != "ours"]
            if rivals:
                line += "   times as fast {:.2f} {:.2f}".format(
                    *(min(times[rival] for rival in rivals) / times["ours"] for times in (processor, elapsed)))
            if extension != ".wmf":
                memory = max(run[2] for run in taken["ours"]) / (4 * WIDTH * HEIGHT)
                line += f"   memory {memory:.2f}"
            print(line, flush=True)


main()
