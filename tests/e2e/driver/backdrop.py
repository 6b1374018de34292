"""python3 -m driver.backdrop X Y WIDTH HEIGHT [desktop]

A window of coloured fields below all others, which a window manager leaves alone. With the word, it says that it is the
desktop. What was covered is drawn again only after a
while, as a busy program does it. The property TAVRIX_DRAWN of the root window tells of each drawing: the process, and
how many it were.
"""

import os
import sys
import time

from Xlib import X, Xatom, display

_COLOURS = ("#ff0000", "#00ff00", "#0000ff", "#ffff00", "#00ffff", "#ff00ff", "#ffffff", "#000000")
_FIELD = 40  # pixels
_LATE = 0.08  # seconds


def main(x, y, width, height, desktop=False):
    server = display.Display()
    screen = server.screen()
    window = screen.root.create_window(x, y, width, height, 0, screen.root_depth, event_mask=X.ExposureMask,
                                       override_redirect=True, background_pixel=screen.white_pixel)
    pens = [window.create_gc(foreground=screen.default_colormap.alloc_named_color(colour).pixel)
            for colour in _COLOURS]
    if desktop:
        window.change_property(server.get_atom("_NET_WM_WINDOW_TYPE"), Xatom.ATOM, 32,
                               [server.get_atom("_NET_WM_WINDOW_TYPE_DESKTOP")])
    window.configure(stack_mode=X.Below)
    window.map()
    drawn = 0
    while True:
        event = server.next_event()
        if event.type != X.Expose or event.count:
            continue
        time.sleep(_LATE)
        for top in range(0, height, _FIELD):
            for left in range(0, width, _FIELD):
                window.fill_rectangle(pens[(left // _FIELD + 3 * (top // _FIELD)) % len(pens)], left, top, _FIELD,
                                      _FIELD)
        drawn += 1
        screen.root.change_property(server.get_atom("TAVRIX_DRAWN"), Xatom.CARDINAL, 32, [os.getpid(), drawn])
        server.flush()


if __name__ == "__main__":
    main(*map(int, sys.argv[1:5]), sys.argv[5:] == ["desktop"])
