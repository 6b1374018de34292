"""python3 -m driver.stubborn WIDTH HEIGHT

A window manager that gives every window this size, whatever it asks for. The number of requests that it has refused
stands in the property TAVRIX_REFUSED of the root window.
"""

import sys

from Xlib import X, Xatom, display


def main(width, height):
    x = display.Display()
    x.set_error_handler(lambda *_: None)  # windows come and go
    root = x.screen().root
    root.change_attributes(event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
    refused_name, refused = x.get_atom("TAVRIX_REFUSED"), 0

    def tell():
        root.change_property(refused_name, Xatom.CARDINAL, 32, [refused])
        x.flush()

    tell()
    while True:
        event = x.next_event()
        if event.type == X.MapRequest:
            event.window.configure(x=0, y=0, width=width, height=height)
            event.window.map()
            event.window.set_input_focus(X.RevertToPointerRoot, X.CurrentTime)
        elif event.type == X.ConfigureRequest:
            refused += 1
            event.window.configure(width=width, height=height)
        tell()


if __name__ == "__main__":
    main(int(sys.argv[1]), int(sys.argv[2]))
