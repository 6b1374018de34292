#!/usr/bin/env python3
"""Makes the sample show beside this file anew: landscapes in flat colours, an animated sun, a tune, and tour.tvs."""

import math
import os
import struct

from PIL import Image, ImageDraw

HERE = os.path.dirname(os.path.abspath(__file__))
SIZE = (960, 600)

# Name, sky above and below, hills from far to near, description.
LANDSCAPES = (
    ("dawn.jpg", (28, 32, 78), (240, 150, 110), ((110, 80, 120), (78, 56, 96), (40, 30, 60)), "Before the sun is up"),
    ("noon.jpg", (70, 140, 220), (205, 230, 250), ((120, 170, 130), (82, 140, 92), (44, 96, 60)), "Noon"),
    ("rain.jpg", (96, 104, 116), (170, 176, 184), ((120, 130, 134), (92, 104, 106), (60, 74, 72)), "A shower"),
    ("dusk.jpg", (60, 30, 90), (250, 120, 70), ((120, 60, 90), (84, 40, 74), (46, 22, 50)), "Dusk"),
)
# Notes of a scale and how long they last, in quarters.
TUNE = ((60, 1), (64, 1), (67, 1), (72, 2), (69, 1), (67, 1), (64, 1), (65, 1), (62, 1), (60, 2)) * 3


def landscape(above, below, hills):
    image = Image.new("RGB", SIZE)
    draw = ImageDraw.Draw(image)
    for y in range(SIZE[1]):
        part = y / SIZE[1]
        draw.line((0, y, SIZE[0], y), tuple(round(a + (b - a) * part) for a, b in zip(above, below)))
    for row, colour in enumerate(hills):
        crest = [(x, 320 + 80 * row + 40 * math.sin(x / (90 + 40 * row) + 2 * row) + 14 * math.sin(x / 31 + row))
                 for x in range(0, SIZE[0] + 1, 4)]
        draw.polygon([(0, SIZE[1]), *crest, (SIZE[0], SIZE[1])], fill=colour)
    return image


def sun(frame, frames):
    image = Image.new("P", (240, 240), 0)
    image.putpalette([30, 34, 80, 250, 210, 90, 240, 150, 60])
    draw = ImageDraw.Draw(image)
    reach = 88 + 20 * math.sin(2 * math.pi * frame / frames)
    for ray in range(12):
        angle = math.pi * (ray / 6 + frame / frames / 6)
        draw.line((120, 120, 120 + reach * math.cos(angle), 120 + reach * math.sin(angle)), fill=2, width=7)
    draw.ellipse((65, 65, 175, 175), fill=1)
    return image


def variable(number):
    """A number as MIDI files store times: seven bits a byte, the highest first."""
    groups = [number & 0x7F]
    while number := number >> 7:
        groups.append(number & 0x7F | 0x80)
    return bytes(reversed(groups))


def midi(notes, quarter=96):
    track = b"\x00\xff\x51\x03" + (600_000).to_bytes(3, "big") + b"\x00\xc0\x0b"  # 100 a minute, a vibraphone
    for note, quarters in notes:
        track += b"\x00\x90" + bytes((note, 80)) + variable(quarter * quarters) + b"\x80" + bytes((note, 0))
    track += b"\x00\xff\x2f\x00"
    return struct.pack(">4sIHHH4sI", b"MThd", 6, 0, 1, quarter, b"MTrk", len(track)) + track


def write(name, content):
    with open(os.path.join(HERE, name), "wb") as file:
        file.write(content)


def main():
    slides = []
    for name, above, below, hills, description in LANDSCAPES:
        landscape(above, below, hills).save(os.path.join(HERE, name), quality=85)
        slides.append((name, description))
    frames = [sun(frame, 12) for frame in range(12)]
    frames[0].save(os.path.join(HERE, "sun.gif"), save_all=True, append_images=frames[1:], duration=80, loop=0)
    slides.insert(2, ("sun.gif", "An animated picture"))
    write("tune.mid", midi(TUNE))

    # Sound file, its name, track, loop, seconds a slide, random, names, descriptions, again from the start, animate.
    options = (1, '"tune.mid"', 0, 0, 4, 0, 0, -1, -1, -1)
    lines = ['"Tavrix Slide Show"', '"Version 1.5"', *map(str, options)]
    for name, description in slides:
        lines += [f'"{name}"', f'"{description}"']
    write("tour.tvs", "".join(line + "\r\n" for line in lines).encode("cp1252"))


main()
