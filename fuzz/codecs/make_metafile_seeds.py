#!/usr/bin/python3
"""Adds metafiles to seeds/: the families of records of both formats."""
import pathlib
import struct
import zlib

SEEDS = pathlib.Path(__file__).resolve().parent / "seeds"
PALETTE = b"".join(struct.pack("<BBBB", 16 * i, 255 - 16 * i, 7 * i, 0) for i in range(16))


def rows(bits, width, height):
    return bytes(i * 37 % 256 for i in range((width * bits + 31) // 32 * 4 * height))


def dib(bits=24, palette=b"", width=5, height=3):
    header = struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, 0, 0, 0, 0, len(palette) // 4, 0)
    return header + palette, rows(bits, width, height)


def whole_file(compression, width, height, data):
    return struct.pack("<IiiHHIIiiII", 40, width, height, 1, 0, compression, len(data), 0, 0, 0, 0), data


def png(width=5, height=3):
    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))

    data = b"".join(b"\0" + bytes(i * 29 % 256 for i in range(4 * width)) for _ in range(height))
    head = chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0))
    return whole_file(5, width, height, b"\x89PNG\r\n\x1a\n" + head + chunk(b"IDAT", zlib.compress(data, 9)) + chunk(b"IEND", b""))


def jpeg():
    return whole_file(4, 64, 64, (SEEDS / "grey.jpg").read_bytes())


class Wmf:
    """A metafile of a few records; words as the format orders them."""

    def __init__(self, placeable=True):
        self.placeable, self.records = placeable, b""

    def add(self, function, *words, tail=b""):
        body = b"".join(struct.pack("<h", word) for word in words) + tail
        body += b"\0" * (len(body) % 2)
        self.records += struct.pack("<IH", 3 + len(body) // 2, function) + body
        return self

    def pen(self, style, width, colour):
        return self.add(0x02FA, style, width, 0, tail=struct.pack("<I", colour))

    def brush(self, style, colour, hatch=0):
        return self.add(0x02FC, tail=struct.pack("<HIH", style, colour, hatch))

    def font(self, height, face=b"Arial", charset=0, escapement=0):
        return self.add(0x02FB, height, 0, escapement, escapement, 400, tail=bytes([0, 1, 0, charset, 0, 0, 0, 0]) + face + b"\0")

    def write(self, name):
        key = struct.pack("<IHhhhhHIH", 0x9AC6CDD7, 0, 0, 0, 60, 40, 96, 0, 0) if self.placeable else b""
        header = struct.pack("<HHHIHIH", 1, 9, 0x300, 0, 8, 0, 0)
        (SEEDS / name).write_bytes(key + header + self.records + struct.pack("<IH", 3, 0))


class Emf:
    """An enhanced metafile of a few records; longs."""

    BOUNDS = struct.pack("<iiii", 0, 0, -1, -1)

    def __init__(self):
        self.records = b""

    def add(self, kind, *longs, tail=b""):
        body = b"".join(struct.pack("<i", value) for value in longs) + tail
        body += b"\0" * (-len(body) % 4)
        self.records += struct.pack("<II", kind, 8 + len(body)) + body
        return self

    def poly(self, kind, *points):
        return self.add(kind, tail=self.BOUNDS + struct.pack("<I", len(points) // 2) + struct.pack(f"<{len(points)}i", *points))

    def blit(self, kind, fixed, operation, image):
        header, bits = image
        fields = struct.pack("<4iI2i6fII", 5, 5, 10, 10, operation, 0, 0, 1, 0, 0, 1, 0, 0, 0xFFFFFF, 0)
        fields += struct.pack("<4I", fixed, len(header), fixed + len(header), len(bits))
        tail = struct.pack("<2i", 5, 3) if fixed == 108 else b"\0" * (fixed - 100)
        return self.add(kind, tail=self.BOUNDS + fields + tail + header + bits)

    def write(self, name):
        header = struct.pack("<II4i4iIIIIHHIIIiiii", 1, 88, 0, 0, 59, 39, 0, 0, 1587, 1058, 0x464D4520, 0x10000, 0, 0, 16, 0, 0, 0, 0, 960, 960, 254, 254)
        (SEEDS / name).write_bytes(header + self.records + struct.pack("<5I", 14, 20, 0, 16, 20))


def main():
    region = struct.pack("<HHIHHHhhhh", 0, 6, 0, 0, 1, 2, 0, 0, 20, 20) + struct.pack("<HHHHHH", 2, 0, 20, 0, 20, 2)
    shapes = Wmf().add(0x0103, 8).add(0x020B, 0, 0).add(0x020C, 40, 60).pen(1, 1, 0xFF).add(0x012D, 0)
    shapes.brush(2, 0xFF00, 3).add(0x012D, 1).add(0x041B, 30, 50, 5, 5).add(0x0324, 3, 1, 1, 30, 5, 9, 30)
    shapes.add(0x0538, 2, 3, 3, *range(12)).add(0x0325, 2, 3, 4, 50, 6).add(0x0418, 20, 30, 2, 2)
    shapes.add(0x0817, 0, 9, 9, 0, 20, 20, 1, 1).add(0x081A, 0, 9, 9, 0, 20, 20, 1, 1).add(0x0830, 0, 9, 9, 0, 20, 20, 1, 1)
    shapes.add(0x061C, 5, 5, 30, 30, 3, 3).add(0x0214, 1, 1).add(0x0213, 30, 30).add(0x041F, 255, 0, 3, 3)
    shapes.add(0x0548, 1, -1, 255, 9, 9).add(0x01F0, 1).write("shapes.wmf")
    state = Wmf().add(0x001E).add(0x0104, 6).add(0x0102, 1).add(0x0106, 2).add(0x0410, 1, 2, 1, 2).add(0x0211, 3, 3)
    state.add(0x0416, 30, 30, 2, 2).add(0x0415, 10, 10, 5, 5).add(0x0220, 1, 1).add(0x06FF, tail=region).add(0x012C, 0)
    state.add(0x012B, 0).add(0x0429, 0, 1, 2, 2).add(0x041B, 40, 60, 0, 0).add(0x0127, -1).write("state.wmf")
    text = Wmf(placeable=False).add(0x020C, 40, 60).font(-12, escapement=300).add(0x012D, 0).add(0x012E, 25)
    text.add(0x0214, 20, 5).add(0x0521, 3, tail=b"abc\0\5\0\5\0").add(0x0521, 2, tail=b"de\5\0\5\0").font(9, b"\x82l\x82r", 128).add(0x012D, 1)
    text.add(0x0A32, 9, 9, 3, 6, 0, 0, 50, 30, tail=b"\x82\xa0z\0" + struct.pack("<3h", 5, 6, 7)).write("text.wmf")
    bitmaps = Wmf().add(0x0142, 5, 0, tail=b"".join(dib(1, PALETTE[:8], 8, 8))).add(0x012D, 0).add(0x061D, 0x21, 0xF0, 20, 20, 3, 3)
    bitmaps.add(0x0F43, 0x20, 0xCC, 0, 3, 5, 0, 0, 20, 30, 2, 2, tail=b"".join(dib()))
    bitmaps.add(0x0940, 0x20, 0xCC, 0, 0, 3, 5, 9, 9, tail=b"".join(dib(8, PALETTE))).add(0x0940, 0x42, 0, 0, 0, 0, 5, 5, 30, 30)
    bitmaps.add(0x0B41, 0x46, 0x66, 3, 5, 0, 0, -10, 20, 30, 5, tail=b"".join(dib(4, PALETTE)))
    bitmaps.add(0x0D33, 0, 2, 1, 0, 0, 3, 5, 9, 30, tail=b"".join(dib(16)))
    bitmaps.add(0x0922, 0x20, 0xCC, 0, 0, 2, 2, 1, 1, 0, 2, 2, 2, 0x101, tail=b"\x40\0\x80\0").write("bitmaps.wmf")

    box = struct.pack("<IIII16xiiii", 32, 1, 1, 16, 5, 5, 40, 30)
    float4 = struct.pack("<6f", 0.9, 0.1, -0.1, 0.9, 2, 3)
    shapes = Emf().add(17, 8).add(9, 60, 40).add(11, 60, 40).add(38, 1, 2, 1, 0, 0xFF).add(37, 1).add(39, 2, 2, 0xFF00, 3).add(37, 2)
    shapes.poly(3, 1, 1, 30, 5, 9, 30).poly(2, 0, 0, 9, 9, 20, 0, 30, 9).poly(5, 9, 9, 20, 0, 30, 9).poly(6, 4, 4, 8, 8)
    shapes.add(8, tail=Emf.BOUNDS + struct.pack("<4I12i", 2, 6, 3, 3, *range(12))).add(56, tail=Emf.BOUNDS + struct.pack("<I6i", 3, *range(6)) + b"\6\2\3")
    shapes.add(86, tail=Emf.BOUNDS + struct.pack("<I6h", 3, 1, 1, 30, 2, 3, 30)).add(43, 2, 2, 30, 20).add(42, 2, 2, 30, 20)
    shapes.add(44, 5, 5, 40, 30, 6, 6).add(47, 1, 1, 30, 30, 30, 15, 15, 0).add(55, 1, 1, 30, 30, 30, 15, 15, 0)
    shapes.add(41, 20, 20, 9, tail=struct.pack("<2f", 30, 200)).add(15, 3, 3, 255).add(53, 50, 35, 0xFFFFFF, 1).add(40, 1)
    shapes.add(95, 3, 0, 0, 0, 0, 0x12207, 3, 0, 0xFF, 0, 2, 4, 2).add(37, 3).add(27, 1, 1).add(54, 50, 30).write("shapes.emf")
    state = Emf().add(33).add(35, tail=float4).add(36, tail=float4 + struct.pack("<I", 2)).add(20, 7).add(59).add(27, 5, 5).add(54, 50, 8)
    state.add(54, 20, 35).add(61).add(60).add(65).add(66).add(67, 5).add(75, 48, 1, tail=box).add(28).add(30, 3, 3, 40, 30).add(29, 9, 9, 12, 12)
    state.add(26, 1, 1).add(71, tail=Emf.BOUNDS + struct.pack("<II", 48, 0x80000004) + box).add(73, tail=Emf.BOUNDS + struct.pack("<I", 48) + box)
    state.add(72, tail=Emf.BOUNDS + struct.pack("<IIii", 48, 0x80000002, 2, 2) + box).add(34, -1).add(43, 0, 0, 60, 40)
    state.add(49, 4, tail=struct.pack("<HHII", 0x300, 2, 0xFF, 0xFF00)).add(48, 4).add(50, 4, 0, 1, 0xFF0000).add(51, 4, 3).write("state.emf")
    face = "Arial".encode("utf-16-le").ljust(64, b"\0")
    text = Emf().add(82, 1, -12, 0, 300, 300, 400, tail=b"\1\1\1\0\0\0\0\0" + face).add(37, 1).add(22, 1).add(120, 3, 1)
    string = "a\u20ac".encode("utf-16-le")
    text.add(84, tail=Emf.BOUNDS + struct.pack("<Iff2iIII4iI", 1, 1, 1, 9, 9, 2, 76, 6, 0, 0, 50, 40, 80) + string + struct.pack("<2i", 7, 8))
    text.add(108, 5, 20, 2, 0x300, 2, 0, 0, tail=b"ab").add(97, tail=Emf.BOUNDS + struct.pack("<IffI2iIII4iI", 2, 1, 1, 1, 3, 30, 2, 80, 0, 0, 0, 0, 0, 0) + string)
    text.write("text.emf")
    bitmaps = Emf().blit(76, 100, 0xCC0020, dib()).blit(77, 108, 0x660046, dib(8, PALETTE)).blit(78, 128, 0xAACC0020, dib())
    bitmaps.blit(114, 108, 0x01FF0000, dib(32)).blit(114, 108, 0x00800000, dib()).blit(116, 108, 0xFF00, dib(4, PALETTE)).add(21, 4)
    header, bits = dib()
    place = struct.pack("<4I", 80, len(header), 80 + len(header), len(bits))
    bitmaps.add(81, tail=Emf.BOUNDS + struct.pack("<6i", 20, 5, 0, 0, 5, 3) + place + struct.pack("<IIii", 0, 0xCC0020, 30, -20) + header + bits)
    place = struct.pack("<4I", 76, len(header), 76 + len(header), len(bits))
    bitmaps.add(80, tail=Emf.BOUNDS + struct.pack("<6i", 20, 5, 0, 0, 5, 3) + place + struct.pack("<III", 0, 1, 2) + header + bits)
    header, bits = dib(1, PALETTE[:8], 8, 8)
    bitmaps.add(93, 2, 0, 32, len(header), 32 + len(header), len(bits), tail=header + bits).add(37, 2).add(43, 1, 1, 30, 30)
    place = struct.pack("<4I", 140, len(header), 140 + len(header), len(bits))
    bitmaps.add(79, tail=Emf.BOUNDS + struct.pack("<10i6fII", 9, 9, 30, 3, 3, 30, 0, 0, 8, 8, 1, 0, 0, 1, 0, 0, 0, 0) + place + bytes(28) + header + bits)
    vertices = struct.pack("<iiHHHHiiHHHHiiHHHH", 0, 0, 0xFF00, 0, 0, 0, 60, 0, 0, 0xFF00, 0, 0, 9, 40, 0, 0, 0xFF00, 0)
    bitmaps.add(118, tail=Emf.BOUNDS + struct.pack("<III", 3, 1, 2) + vertices + struct.pack("<III", 0, 1, 2))
    bitmaps.add(118, tail=Emf.BOUNDS + struct.pack("<III", 3, 1, 1) + vertices + struct.pack("<II", 0, 2)).write("bitmaps.emf")

    files = Wmf()
    for image in (png(), jpeg()):
        files.add(0x0F43, 0x20, 0xCC, 0, 3, 5, 0, 0, 20, 30, 2, 2, tail=b"".join(image))
    files.write("files.wmf")
    indexed = struct.pack("<IiiHHIIiiIIHH", 40, 1, 1, 1, 8, 0, 0, 0, 0, 1, 0, 0, 0), b"\0\0\0\0"
    files = Emf().blit(77, 108, 0xCC0020, png()).blit(77, 108, 0x660046, jpeg()).blit(78, 128, 0xAAF00000, (b"", b""))
    files.add(49, 1, tail=struct.pack("<HHI", 0x300, 1, 0xFF)).add(48, 1)
    files.add(95, 2, 52, 44, 96, 4, 0x10200, 6, 5, 1, 0, 0, tail=b"".join(indexed)).add(37, 2).add(27, 1, 1).add(54, 50, 30)
    glyphs = struct.pack("<Iff2iIII4iI2H2i", 2, 1, 1, 9, 9, 2, 76, 0x10, 0, 0, 0, 0, 80, 36, 500, 7, 8)
    files.add(84, tail=Emf.BOUNDS + glyphs)
    files.add(84, tail=Emf.BOUNDS + struct.pack("<Iff2iIIII2H", 2, 1, 1, 9, 30, 2, 60, 0x100, 0, 72, 73)).write("files.emf")


main()
