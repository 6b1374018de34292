#!/usr/bin/python3
"""Makes hills.jpg and, from it, small bitmaps of the kinds that a bitmap file can be, a TGA and a PCX; and a balloon
that has no background, as a GIF, an icon and a cursor.

usage: samples/make_bitmaps.py    (needs Pillow; writes beside itself, the same bytes each time)
"""
import io
import math
import pathlib
import random
import struct

from PIL import Image, ImageDraw, ImageFilter

HERE = pathlib.Path(__file__).resolve().parent


def ridge(width, base, waves, seed):
    """The height of a range of hills for each column."""
    rng = random.Random(seed)
    parts = [(amplitude, rng.uniform(0.6, 1.4) * length, rng.uniform(0, 6.28)) for amplitude, length in waves]
    return [base + sum(a * math.sin(x / l + p) for a, l, p in parts) for x in range(width)]


def mix(a, b, t):
    t = max(0.0, min(1.0, t))
    return tuple(round(u + (v - u) * t) for u, v in zip(a, b))


def landscape(width, height):
    image = Image.new("RGB", (width, height))
    draw = ImageDraw.Draw(image)
    horizon = int(height * 0.62)
    for y in range(height):  # the sky of a late afternoon
        t = y / horizon
        draw.line([(0, y), (width, y)], fill=mix(mix((58, 110, 178), (150, 186, 214), t * 1.3),
                                                 (250, 214, 160), max(0.0, t - 0.55) * 2))
    sun = (int(width * 0.70), int(height * 0.42))
    glow = Image.new("L", image.size, 0)
    glow_draw = ImageDraw.Draw(glow)
    for radius in range(260, 0, -2):
        shade = int(200 * (1 - radius / 260) ** 2)
        glow_draw.ellipse([sun[0] - radius, sun[1] - radius, sun[0] + radius, sun[1] + radius], fill=shade)
    image.paste(Image.new("RGB", image.size, (255, 240, 200)), (0, 0), glow)
    ImageDraw.Draw(image).ellipse([sun[0] - 34, sun[1] - 34, sun[0] + 34, sun[1] + 34], fill=(255, 250, 226))

    rng = random.Random(7)  # clouds: many soft discs
    clouds = Image.new("L", image.size, 0)
    cloud_draw = ImageDraw.Draw(clouds)
    for _ in range(9):
        cx, cy = rng.uniform(0, width), rng.uniform(height * 0.06, height * 0.30)
        for _ in range(26):
            r = rng.uniform(8, 30)
            x, y = cx + rng.gauss(0, 62), cy + rng.gauss(0, 9)
            cloud_draw.ellipse([x - r * 1.7, y - r * 0.6, x + r * 1.7, y + r * 0.6], fill=int(rng.uniform(60, 150)))
    clouds = clouds.filter(ImageFilter.GaussianBlur(9))
    image.paste(Image.new("RGB", image.size, (255, 247, 238)), (0, 0), clouds)

    layers = [  # from far to near: base, waves, colour at the top and at the bottom
        (0.52, [(26, 120), (12, 47), (4, 19)], (132, 150, 178), (168, 176, 184)),
        (0.60, [(30, 150), (11, 60), (3, 17)], (92, 124, 130), (136, 158, 140)),
        (0.69, [(26, 190), (9, 55), (2, 13)], (70, 112, 78), (112, 146, 84)),
        (0.80, [(22, 230), (7, 70), (1.5, 11)], (56, 98, 48), (96, 134, 58)),
    ]
    for index, (base, waves, top, bottom) in enumerate(layers):
        line = ridge(width, base * height, waves, 20 + index)
        pixels = image.load()
        for x in range(width):
            for y in range(max(0, int(line[x])), height):
                depth = (y - line[x]) / (height * 0.22)
                light = 0.06 * math.sin((x + 2 * y) / (9 + 5 * index)) if index >= 2 else 0.0
                pixels[x, y] = mix(top, bottom, depth + light)
        if index == 2:  # a lake before the last hill
            for y in range(int(height * 0.775), int(height * 0.83)):
                t = (y - height * 0.775) / (height * 0.055)
                inset = 60 * (1 - math.sin(math.pi * min(1.0, t + 0.15)))
                ImageDraw.Draw(image).line([(width * 0.42 + inset, y), (width * 0.86 - inset, y)],
                                           fill=mix((214, 206, 184), (120, 156, 186), t + 0.1 * math.sin(y * 1.9)))
    rng = random.Random(11)  # trees on the near hill
    near = ridge(width, layers[3][0] * height, layers[3][1], 23)
    draw = ImageDraw.Draw(image)
    for _ in range(70):
        x = int(rng.uniform(0, width - 1))
        foot = near[x] + rng.uniform(2, height * 0.17)
        tall = 16 + (foot - near[x]) * 0.34
        green = mix((30, 64, 34), (58, 100, 44), rng.random())
        draw.rectangle([x - 1, foot - tall * 0.3, x + 1, foot], fill=(70, 52, 38))
        for step in range(4):
            half, y = tall * (0.34 - 0.06 * step), foot - tall * (0.22 + 0.2 * step)
            draw.polygon([(x - half, y), (x + half, y), (x, y - tall * 0.34)], fill=mix(green, (20, 40, 26), step / 9))
    grain = random.Random(3)
    noise = Image.frombytes("L", image.size, bytes(grain.randrange(118, 139) for _ in range(width * height)))
    return Image.blend(image.filter(ImageFilter.GaussianBlur(0.6)), Image.merge("RGB", [noise] * 3), 0.05)


def bmp(width, height, bits, compression, palette, data):
    colours = b"".join(struct.pack("<BBBB", b, g, r, 0) for r, g, b in palette)
    offset = 54 + len(colours)
    return (struct.pack("<2sIII", b"BM", offset + len(data), 0, offset)
            + struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, compression, len(data), 2835, 2835,
                          len(palette), 0) + colours + data)


def packed_rows(image, bits):
    """Rows of palette indexes from the bottom, padded to four bytes."""
    out = bytearray()
    per_byte = 8 // bits
    for y in range(image.height - 1, -1, -1):
        indexes = [image.getpixel((x, y)) for x in range(image.width)]
        indexes += [0] * (-len(indexes) % (per_byte * 4))
        for i in range(0, len(indexes), per_byte):
            value = 0
            for index in indexes[i:i + per_byte]:
                value = value << bits | index
            out.append(value)
    return bytes(out)


def runs(image, four_bits):
    """Run-length rows from the bottom."""
    out = bytearray()
    for y in range(image.height - 1, -1, -1):
        x = 0
        while x < image.width:
            value, length = image.getpixel((x, y)), 1
            while x + length < image.width and length < 255 and image.getpixel((x + length, y)) == value:
                length += 1
            out += bytes([length, value * 17 if four_bits else value])
            x += length
        out += b"\0\0"
    return bytes(out) + b"\0\1"


def colours_of(image, count):
    table = image.getpalette()[:3 * count]
    table += [0] * (3 * count - len(table))
    return [tuple(table[3 * i:3 * i + 3]) for i in range(count)]


def balloon(side, lean=0.0):
    """A balloon on nothing; it leans to the right by a share of its width."""
    big = 4 * side
    image = Image.new("RGBA", (big, big), (0, 0, 0, 0))
    draw = ImageDraw.Draw(image)
    stripes = [(206, 60, 50), (246, 190, 74), (206, 60, 50), (250, 236, 214), (206, 60, 50)]
    left, top, wide, high = big * 0.16, big * 0.03, big * 0.68, big * 0.70
    for index, colour in enumerate(stripes):  # from the outside to the middle
        inset = wide * 0.11 * index
        draw.ellipse([left + inset, top, left + wide - inset, top + high], fill=colour + (255,))
    middle, basket = big * 0.5, big * 0.84
    for x in (-0.09, 0.09):
        draw.line([(middle + big * x * 1.7, top + high * 0.93), (middle + big * x, basket)],
                  fill=(90, 64, 44, 255), width=max(2, big // 48))
    draw.rectangle([middle - big * 0.10, basket, middle + big * 0.10, big * 0.96], fill=(128, 86, 52, 255))
    image = image.transform(image.size, Image.AFFINE, (1, lean, -lean * big * 0.5, 0, 1, 0), Image.BICUBIC)
    return image.resize((side, side), Image.BOX)


def indexed(image, count):
    """Palette pixels, of which the last index is nothing."""
    table = image.convert("RGB").quantize(count - 1, dither=Image.Dither.NONE)
    table.paste(count - 1, mask=image.getchannel("A").point(lambda a: 255 if a < 128 else 0))
    return table


def icon_mask(image):
    """Rows from the bottom, a bit for each pixel that is nothing."""
    clear = image.getchannel("A").point(lambda a: 1 if a < 128 else 0)
    return packed_rows(clear, 1)


def icon_header(side, bits, colours=0):
    return struct.pack("<IiiHHIIiiII", 40, side, 2 * side, 1, bits, 0, 0, 0, 0, colours, 0)


def icon_of_palette(image, bits):
    table = indexed(image, 1 << bits)
    nothing = (1 << bits) - 1
    colours = colours_of(table, nothing) + [(0, 0, 0)]
    return (icon_header(image.width, bits, 1 << bits) + b"".join(struct.pack("<BBBB", b, g, r, 0) for r, g, b in colours)
            + packed_rows(table, bits) + icon_mask(image))


def icon_of_32_bits(image):
    pixels = image.transpose(Image.Transpose.FLIP_TOP_BOTTOM).tobytes("raw", "BGRA")
    return icon_header(image.width, 32) + pixels + icon_mask(image)


def icon_of_png(image):
    out = io.BytesIO()
    image.save(out, "PNG", optimize=True)
    return out.getvalue()


def icon_file(kind, images):
    """Images are (side, planes and bits or the hot spot, bytes)."""
    directory, data = b"", b""
    for side, (x, y), image in images:
        offset = 6 + 16 * len(images) + len(data)
        directory += struct.pack("<BBBBHHII", side % 256, side % 256, 0, 0, x, y, len(image), offset)
        data += image
    return struct.pack("<HHH", 0, kind, len(images)) + directory + data


def balloons():
    frames = [indexed(balloon(96, 0.09 * math.sin(step * math.pi / 4)), 32) for step in range(8)]
    frames[0].save(HERE / "balloon.gif", save_all=True, append_images=frames[1:], duration=120, loop=0, disposal=2,
                   transparency=31, optimize=False)
    (HERE / "balloon.ico").write_bytes(icon_file(1, [
        (16, (1, 4), icon_of_palette(balloon(16), 4)),
        (32, (1, 8), icon_of_palette(balloon(32), 8)),
        (48, (1, 32), icon_of_32_bits(balloon(48))),
        (256, (1, 32), icon_of_png(balloon(256))),
    ]))
    (HERE / "balloon.cur").write_bytes(icon_file(2, [(32, (16, 28), icon_of_palette(balloon(32), 4))]))


def main():
    photo = landscape(1024, 683)
    photo.save(HERE / "hills.jpg", quality=88, optimize=True)
    small = photo.resize((160, 107), Image.LANCZOS)
    indexed = small.quantize(256, dither=Image.Dither.NONE)
    (HERE / "small-8bit.bmp").write_bytes(bmp(160, 107, 8, 0, colours_of(indexed, 256), packed_rows(indexed, 8)))
    few = small.quantize(16, dither=Image.Dither.NONE)
    (HERE / "small-4bit.bmp").write_bytes(bmp(160, 107, 4, 0, colours_of(few, 16), packed_rows(few, 4)))
    (HERE / "small-rle8.bmp").write_bytes(bmp(160, 107, 8, 1, colours_of(few, 16), runs(few, False)))
    (HERE / "small-rle4.rle").write_bytes(bmp(160, 107, 4, 2, colours_of(few, 16), runs(few, True)))
    two = small.convert("L").point(lambda v: 1 if v > 128 else 0, "L")
    (HERE / "small-1bit.dib").write_bytes(bmp(160, 107, 1, 0, [(32, 40, 64), (250, 236, 200)], packed_rows(two, 1)))
    small.save(HERE / "small.tga", compression="tga_rle")
    small.save(HERE / "small.png", optimize=True)
    indexed.save(HERE / "small.pcx")
    balloons()


main()
