#!/usr/bin/python3
"""Makes seeds/: one small file of each kind that the decoders know; make_metafile_seeds.py makes the metafiles.

usage: fuzz/codecs/make_seeds.py    (needs Pillow)
"""
import io
import pathlib
import struct

from PIL import Image

SEEDS = pathlib.Path(__file__).resolve().parent / "seeds"
PALETTE = b"".join(struct.pack("<BBBB", 16 * i, 255 - 16 * i, 7 * i, 0) for i in range(16))


def bmp(name, bits, compression=0, size=40, extra=b"", palette=b"", data=b"", width=5, height=3):
    header = struct.pack("<IiiHHIIiiII", size, width, height, 1, bits, compression, len(data), 0, 0, len(palette) // 4, 0)
    header = (header + extra).ljust(size, b"\0") + palette
    offset = 14 + len(header)
    (SEEDS / name).write_bytes(struct.pack("<2sIII", b"BM", offset + len(data), 0, offset) + header + data)


def rows(bits, width=5, height=3):
    return bytes(i * 37 % 256 for i in range((width * bits + 31) // 32 * 4 * height))


def icon(name, images, kind=1):
    """A file of images, each (bytes, bits)."""
    directory, data = b"", b""
    for image, bits in images:
        offset = 6 + 16 * len(images) + len(data)
        directory += struct.pack("<BBBBHHII", 5, 3, 0, 0, 1, bits, len(image), offset)
        data += image
    (SEEDS / name).write_bytes(struct.pack("<HHH", 0, kind, len(images)) + directory + data)


def icon_bitmap(bits, compression=0, masks=b""):
    palette = PALETTE[:4 << bits] if bits <= 8 else b""
    header = struct.pack("<IiiHHIIiiII", 40, 5, 6, 1, bits, compression, 0, 0, 0, len(palette) // 4, 0)
    return header + masks + palette + rows(bits) + bytes([0x50, 0, 0, 0] * 3)


def tga(name, kind, bits, data, palette=b"", entry_bits=0, descriptor=0, first=0, tail=b""):
    length = len(palette) * 8 // entry_bits if palette else 0
    header = struct.pack("<BBBHHBHHHHBB", 2, length > 0, kind, first, length, entry_bits, 0, 0, 5, 3, bits, descriptor)
    (SEEDS / name).write_bytes(header + b"id" + palette + data + tail)


def pcx(name, bits, planes, data, palette=b"", tail=b"", version=5, encoding=1, width=5, height=3):
    line = (width * bits + 15) // 16 * 2
    header = struct.pack("<BBBBHHHHHH", 10, version, encoding, bits, 0, 0, width - 1, height - 1, 300, 300)
    header += palette.ljust(48, b"\0") + struct.pack("<BBH", 0, planes, line)
    data = data or bytes(i * 37 % 192 for i in range(line * planes * height))
    (SEEDS / name).write_bytes(header.ljust(128, b"\0") + data + tail)


def png(image, **options):
    out = io.BytesIO()
    image.save(out, "PNG", **options)
    return out.getvalue()


def main():
    SEEDS.mkdir(exist_ok=True)
    for bits in (1, 2, 4, 8):
        bmp(f"bits{bits}.bmp", bits, palette=PALETTE[:4 << bits], data=rows(bits))
    for bits in (16, 24, 32):
        bmp(f"bits{bits}.bmp", bits, data=rows(bits))
    bmp("topdown.bmp", 24, data=rows(24), height=-3)
    bmp("masks16.bmp", 16, 3, extra=struct.pack("<III", 0xF800, 0x7E0, 0x1F), data=rows(16))
    bmp("alpha.bmp", 32, 3, 124, extra=struct.pack("<IIII", 0xFF0000, 0xFF00, 0xFF, 0xFF000000), data=rows(32))
    bmp("wide_masks.bmp", 32, 6, extra=struct.pack("<IIII", 0x3FFFF, 0xFC0000, 0x3F000000, 0xC0000000), data=rows(32))
    bmp("rle8.bmp", 8, 1, palette=PALETTE, data=bytes([5, 1, 0, 0, 0, 3, 1, 2, 3, 0, 0, 2, 1, 1, 1, 4, 0, 1]))
    bmp("rle4.bmp", 4, 2, palette=PALETTE, data=bytes([5, 0x12, 0, 0, 0, 5, 0x12, 0x34, 0x50, 0, 0, 2, 1, 1, 1, 4, 0, 1]))
    bmp("rle24.bmp", 24, 4, 64, data=bytes([5, 1, 2, 3, 0, 0, 0, 3, 1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 0, 1]))
    core = struct.pack("<IHHHH", 12, 5, 3, 1, 24) + rows(24)
    (SEEDS / "core.bmp").write_bytes(struct.pack("<2sIII", b"BM", 14 + len(core), 0, 26) + core)

    image = Image.new("RGB", (19, 21))
    image.putdata([(x * 12, y * 11, (x * y) % 256) for y in range(21) for x in range(19)])
    small = dict(quality=40, optimize=True)
    image.save(SEEDS / "baseline.jpg", **small)
    image.save(SEEDS / "progressive.jpg", progressive=True, **small)
    image.convert("L").save(SEEDS / "grey.jpg", **small)
    image.convert("CMYK").save(SEEDS / "cmyk.jpg", **small)
    exif = Image.Exif()
    exif[0x0112] = 6
    image.save(SEEDS / "turned.jpg", exif=exif, **small)
    data = (SEEDS / "baseline.jpg").read_bytes()
    bmp("jpeg.bmp", 0, 4, data=data, width=19, height=21)

    few = image.quantize(8)
    few.save(SEEDS / "plain.gif", interlace=False)
    few.save(SEEDS / "interlaced.gif", interlace=True, transparency=2, comment=b"seed")
    turned = [few.rotate(90 * i).crop((0, 0, 19, 19)) for i in range(3)]
    turned[0].save(SEEDS / "animated.gif", save_all=True, append_images=turned[1:], duration=50, loop=0, disposal=2)

    plain = bytes(i * 37 % 256 for i in range(60))
    tga("grey.tga", 3, 8, plain[:15])
    tga("greyalpha.tga", 3, 16, plain[:30], descriptor=0x38)
    tga("bits16.tga", 2, 16, plain[:30], descriptor=0x21)
    tga("bits24.tga", 2, 24, plain[:45], descriptor=0x20)
    extension = struct.pack("<H492xB", 495, 4) + struct.pack("<II", 18 + 2 + 60, 0)
    tga("bits32.tga", 2, 32, plain, descriptor=0x08, tail=extension + b"TRUEVISION-XFILE.\0")
    tga("mapped.tga", 1, 8, bytes([7, 8, 9] * 5), PALETTE[:12], 32, first=7)
    tga("mapped16.tga", 1, 16, b"\7\0\10\0\11\0" * 5, PALETTE[:8], 16, first=7)
    tga("runs8.tga", 11, 8, b"\x86\1\7\1\2\3\4\5\6\7\10\x80\0")
    tga("runs16.tga", 10, 16, b"\x86\1\2\7" + plain[:16])
    tga("runs24.tga", 10, 24, b"\x86\1\2\3\7" + plain[:24])
    tga("runs32.tga", 10, 32, b"\x86\1\2\3\4\7" + plain[:32], descriptor=8)
    tga("runsmapped.tga", 9, 8, b"\x86\1\7\1\0\1\0\1\0\1\0", PALETTE[:6], 24)
    colours = bytes(range(48))
    pcx("bits1.pcx", 1, 1, b"", version=3)
    pcx("planes3.pcx", 1, 3, b"", colours)
    pcx("planes4.pcx", 1, 4, b"", version=0)
    pcx("bits2.pcx", 2, 1, b"", b"\x10\0\0\x60", version=2)
    pcx("bits2planes2.pcx", 2, 2, b"", colours)
    pcx("bits4.pcx", 4, 1, b"", colours)
    pcx("bits8.pcx", 8, 1, b"\xc7\1\2\xc1\xff\xc0\0\xc9\3", tail=b"\x0c" + bytes(i % 256 for i in range(768)))
    pcx("grey.pcx", 8, 1, b"")
    pcx("colour.pcx", 8, 3, b"")
    pcx("notencoded.pcx", 8, 4, b"", encoding=0)

    for bits in (1, 4, 8, 16, 24, 32):
        icon(f"bits{bits}.ico", [(icon_bitmap(bits), bits)])
    icon("masks.ico", [(icon_bitmap(32, 3, struct.pack("<III", 0xFF, 0xFF00, 0xFF0000)), 32)])
    icon("several.cur", [(icon_bitmap(4), 4), (icon_bitmap(24), 24)], kind=2)
    icon("png.ico", [(png(image), 24), (icon_bitmap(8), 8)])
    icon("png_palette.ico", [(png(few, transparency=b"\0\x80", bits=4), 4)])
    icon("png_alpha.ico", [(png(image.convert("LA")), 16)])


main()
