"""Writes what Pillow makes of a GIF file, for comparison: for each frame the bytes of its pixels (red, green, blue,
alpha), all of the same size, one after the other."""

import sys

from PIL import Image, ImageSequence

with Image.open(sys.argv[1]) as image:
    for frame in ImageSequence.Iterator(image):
        sys.stdout.buffer.write(frame.convert("RGBA").tobytes())
