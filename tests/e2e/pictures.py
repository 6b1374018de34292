"""Test pictures whose every pixel tells where in the picture it is."""

from typing import NamedTuple

from PIL import Image, ImageChops


def coded(width, height):
    """An image of up to 2048x2048 pixels, no two of which are alike."""
    columns, rows = range(width), range(height)
    red = bytes(x & 255 for x in columns) * height
    green = b"".join(bytes((y & 255,)) * width for y in rows)
    block = bytes(x >> 8 << 3 for x in columns)
    blue = b"".join(bytes(128 | y >> 8 | b for b in block) for y in rows)
    return Image.merge("RGB", [Image.frombytes("L", (width, height), band) for band in (red, green, blue)])


def stretched(image, size):
    """Nearest neighbour: pixel i of n is pixel floor(i * m / n) of m."""
    across, down = image.width / size[0], image.height / size[1]
    small = 1e-6
    return image.transform(size, Image.Transform.AFFINE,
                           (across, 0, small - across / 2, 0, down, small - down / 2), Image.Resampling.NEAREST)


def _place(pixel):
    """Where a pixel of a coded image is from; None for a colour that is in none."""
    red, green, blue = pixel
    if not 128 <= blue < 192:
        return None
    return red | (blue >> 3 & 7) << 8, green | (blue & 7) << 8


class View(NamedTuple):
    """The part of a picture that stands on the screen."""

    screen_x: int
    screen_y: int
    x: int  # the pixel of the picture at the view's top left
    y: int
    width: int
    height: int


def find_view(screen, picture, window):
    """Looks for a coded picture inside a window: where it stands, which part of it, and that each pixel of the part is
    the picture's. None while it does not stand there."""
    image = screen.grab()
    pixels, wanted_pixels = image.load(), picture.load()
    right, bottom = min(window.x + window.width, image.width), min(window.y + window.height, image.height)

    def fits(x, y, offset):
        place = (x - offset[0], y - offset[1])
        return (0 <= place[0] < picture.width and 0 <= place[1] < picture.height
                and pixels[x, y] == wanted_pixels[place])

    def hits():
        for y in range(max(0, window.y), bottom - 1, 16):
            for x in range(max(0, window.x), right - 1, 16):
                place = _place(pixels[x, y])
                if place:
                    offset = (x - place[0], y - place[1])
                    if fits(x, y, offset) and fits(x + 1, y, offset) and fits(x, y + 1, offset):
                        yield x, y, offset

    hit = next(hits(), None)
    if hit is None:
        return None
    x0, y0, offset = hit
    x1, y1 = x0, y0
    while x0 > window.x and fits(x0 - 1, y0, offset):
        x0 -= 1
    while y0 > window.y and fits(x0, y0 - 1, offset):
        y0 -= 1
    while x1 + 1 < right and fits(x1 + 1, y0, offset):
        x1 += 1
    while y1 + 1 < bottom and fits(x0, y1 + 1, offset):
        y1 += 1
    view = View(x0, y0, x0 - offset[0], y0 - offset[1], x1 - x0 + 1, y1 - y0 + 1)
    shown = image.crop((x0, y0, x1 + 1, y1 + 1))
    wanted = picture.crop((view.x, view.y, view.x + view.width, view.y + view.height))
    return view if ImageChops.difference(shown, wanted).getbbox() is None else None
