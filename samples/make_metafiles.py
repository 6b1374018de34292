#!/usr/bin/python3
"""Makes harbour.wmf and rainfall.emf: a drawing of shapes, and a chart with text, hatches, a gradient and a clip.

usage: samples/make_metafiles.py    (writes beside itself, the same bytes each time)
"""
import math
import pathlib
import struct

HERE = pathlib.Path(__file__).resolve().parent


def colour(red, green, blue):
    return red | green << 8 | blue << 16


class Wmf:
    """A placeable metafile. Every object is selected as it is made, and the one before it freed."""

    def __init__(self, width, height, units_per_inch):
        self.bounds = (0, 0, width, height)
        self.units = units_per_inch
        self.records, self.longest, self.place = b"", 0, {}
        self.record(0x0103, 8).record(0x020B, 0, 0).record(0x020C, height, width).record(0x0102, 1)

    def record(self, function, *words, tail=b""):
        body = struct.pack(f"<{len(words)}h", *words) + tail
        body += b"\0" * (len(body) % 2)
        self.longest = max(self.longest, 3 + len(body) // 2)
        self.records += struct.pack("<IH", 3 + len(body) // 2, function) + body
        return self

    def tool(self, kind, function, tail):
        # The first of three places for each kind is free whenever its tool is made.
        self.record(function, tail=tail)
        if kind not in self.place:
            self.place[kind] = len(self.place)
            self.free = len(self.place)
            return self.record(0x012D, self.place[kind])
        self.record(0x012D, self.free).record(0x01F0, self.place[kind])
        self.place[kind], self.free = self.free, self.place[kind]
        return self

    def pen(self, width, value, style=0):
        return self.tool("pen", 0x02FA, struct.pack("<HhhI", style, width, 0, value))

    def brush(self, value):
        return self.tool("brush", 0x02FC, struct.pack("<HIH", 0, value, 0))

    def font(self, height, face):
        fields = struct.pack("<5h8B", -height, 0, 0, 0, 700, 0, 0, 0, 0, 0, 0, 0, 0x12)
        return self.tool("font", 0x02FB, fields + face.encode("cp1252") + b"\0")

    def polygon(self, points):
        flat = [round(part) for point in points for part in point]
        return self.record(0x0324, len(points), *flat)

    def ellipse(self, left, top, right, bottom):
        return self.record(0x0418, bottom, right, top, left)

    def text(self, x, y, value, text):
        data = text.encode("cp1252")
        self.record(0x0209, tail=struct.pack("<I", value))
        return self.record(0x0521, len(data), tail=data + b"\0" * (len(data) % 2) + struct.pack("<hh", y, x))

    def write(self, name):
        key = struct.pack("<IHhhhhHI", 0x9AC6CDD7, 0, *self.bounds, self.units, 0)
        checksum = 0
        for word in struct.unpack("<10H", key):
            checksum ^= word
        records = self.records + struct.pack("<IH", 3, 0)
        header = struct.pack("<HHHIHIH", 1, 9, 0x300, (18 + len(records)) // 2, 6, self.longest, 0)
        (HERE / name).write_bytes(key + struct.pack("<H", checksum) + header + records)


class Emf:
    """An enhanced metafile for a screen of 96 dots an inch."""

    BOUNDS = struct.pack("<4i", 0, 0, -1, -1)

    def __init__(self, width, height):
        self.size, self.records, self.count, self.handles = (width, height), b"", 1, 1

    def record(self, kind, *longs, tail=b""):
        body = struct.pack(f"<{len(longs)}i", *longs) + tail
        body += b"\0" * (-len(body) % 4)
        self.records += struct.pack("<II", kind, 8 + len(body)) + body
        self.count += 1
        return self

    def tool(self, kind, tail):
        self.record(kind, self.handles, tail=tail).record(37, self.handles)
        self.handles += 1
        return self

    def pen(self, width, value, style=0):
        return self.tool(38, struct.pack("<IiiI", style, width, 0, value))

    def brush(self, value, style=0, hatch=0):
        return self.tool(39, struct.pack("<III", style, value, hatch))

    def font(self, height, face, weight=400, turn=0):
        fields = struct.pack("<5i8B", -height, 0, turn, turn, weight, 0, 0, 0, 0, 0, 0, 0, 0x22)
        return self.tool(82, fields + face.encode("utf-16-le").ljust(64, b"\0"))

    def points(self, kind, points):
        flat = [round(part) for point in points for part in point]
        return self.record(kind, tail=self.BOUNDS + struct.pack(f"<I{len(flat)}i", len(points), *flat))

    def gradient(self, left, top, right, bottom, upper, lower):
        def vertex(x, y, rgb):
            return struct.pack("<ii4H", x, y, *(part << 8 for part in rgb), 0)
        tail = struct.pack("<III", 2, 1, 1) + vertex(left, top, upper) + vertex(right, bottom, lower)
        return self.record(118, tail=self.BOUNDS + tail + struct.pack("<II", 0, 1))

    def text(self, x, y, text, align=24):
        data = text.encode("utf-16-le")
        self.record(22, align)
        fields = struct.pack("<IffiiIII4iI", 1, 1, 1, x, y, len(data) // 2, 76, 0, 0, 0, -1, -1, 0)
        return self.record(84, tail=self.BOUNDS + fields + data)

    def write(self, name):
        width, height = self.size
        end = struct.pack("<5I", 14, 20, 0, 16, 20)
        header = struct.pack("<II4i4i", 1, 88, 0, 0, width - 1, height - 1, 0, 0, round(width * 2540 / 96), round(height * 2540 / 96))
        header += struct.pack("<IIIIHHIII4i", 0x464D4520, 0x10000, 88 + len(self.records) + 20, self.count + 1, self.handles, 0, 0, 0, 0, 960, 960, 254, 254)
        (HERE / name).write_bytes(header + self.records + end)


def harbour():
    """A lighthouse over the sea at dusk, with boats; a hundredth of an inch is a unit."""
    image = Wmf(500, 320, 96).pen(0, 0, style=5)
    for step in range(16):
        share = step / 15
        sky = colour(*(round(a + (b - a) * share) for a, b in zip((36, 62, 120), (255, 190, 130))))
        image.brush(sky).polygon([(0, step * 14), (500, step * 14), (500, step * 14 + 15), (0, step * 14 + 15)])
    image.brush(colour(255, 236, 190)).ellipse(330, 160, 400, 230)
    for row in range(8):
        shade = colour(30 + 8 * row, 70 + 9 * row, 110 + 8 * row)
        wave = [(x, 215 + 14 * row + 4 * math.sin(x / 23 + 2 * row)) for x in range(0, 501, 10)]
        image.brush(shade).polygon(wave + [(500, 320), (0, 320)])
    image.brush(colour(46, 48, 56)).polygon([(0, 320), (0, 232), (40, 216), (90, 222), (150, 250), (190, 262), (170, 320)])
    image.brush(colour(240, 236, 226)).polygon([(62, 222), (70, 90), (98, 90), (106, 222)])
    for band in range(3):
        top = 112 + 38 * band
        image.brush(colour(196, 52, 44)).polygon([(70 - (top - 90) * 0.06, top), (98 + (top - 90) * 0.06, top),
                                                  (98 + (top - 72) * 0.06, top + 18), (70 - (top - 72) * 0.06, top + 18)])
    image.brush(colour(60, 60, 70)).polygon([(66, 90), (102, 90), (102, 84), (66, 84)])
    image.brush(colour(255, 240, 140)).polygon([(74, 84), (94, 84), (94, 66), (74, 66)])
    image.brush(colour(60, 60, 70)).polygon([(70, 66), (98, 66), (84, 50)])
    for x, y, size in ((270, 250, 1.0), (410, 282, 1.5), (210, 284, 0.7)):
        def at(points):
            return [(x + size * px, y + size * py) for px, py in points]
        image.brush(colour(96, 54, 36)).polygon(at([(-26, 0), (26, 0), (18, 11), (-20, 11)]))
        image.brush(colour(250, 248, 240)).polygon(at([(-2, -4), (-2, -52), (-22, -4)]))
        image.brush(colour(232, 226, 210)).polygon(at([(2, -4), (2, -60), (26, -4)]))
    image.font(26, "Times New Roman").text(300, 24, colour(255, 244, 220), "The old harbour")
    image.write("harbour.wmf")


def rainfall():
    """Columns for months, with a line through them."""
    months = ["Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"]
    fallen = [51, 38, 44, 40, 55, 72, 81, 77, 58, 62, 66, 59]
    image = Emf(560, 340).record(17, 1).record(18, 1)
    image.gradient(0, 0, 560, 340, (250, 250, 246), (214, 228, 240))
    image.font(22, "Arial", 700).record(24, colour(40, 50, 70)).text(280, 34, "Rainfall in a year", 24 | 6)
    image.font(12, "Arial")
    image.pen(1, colour(170, 180, 190), 2)
    for level in range(0, 101, 20):
        y = 290 - 2 * level
        image.record(27, 60, y).record(54, 530, y).text(52, y + 4, str(level), 24 | 2)
    image.pen(1, colour(40, 50, 70))
    tops = []
    for month, (name, value) in enumerate(zip(months, fallen)):
        left, top = 70 + 38 * month, 290 - 2 * value
        tops.append((left + 13, top - 12))
        image.brush(colour(70, 130, 190)).record(43, left, top, left + 26, 290)
        if 5 <= month <= 7:
            image.brush(colour(255, 255, 255), 2, 3).record(43, left, top, left + 26, 290)
        image.text(left + 13, 306, name, 24 | 6)
    # Above half of the scale the line is red.
    for lower, value in ((True, colour(70, 70, 80)), (False, colour(200, 50, 40))):
        image.record(33).record(30, 60, 170 if lower else 60, 531, 291 if lower else 170)
        image.pen(2, value).points(4, tops).record(34, -1)
    image.font(13, "Arial", turn=900).text(22, 190, "millimetres", 24 | 6)
    image.font(11, "Courier New").text(530, 330, "striped: the summer months", 24 | 2)
    image.write("rainfall.emf")


harbour()
rainfall()
