#!/usr/bin/env python3
"""Writes the seeds of the shortcut parser: python3 fuzz/shell/make_seeds.py"""

import pathlib
import struct

CLASS_ID = bytes.fromhex("0114020000000000c000000000000046")


def link(flags, *parts):
    return struct.pack("<I", 0x4C) + CLASS_ID + struct.pack("<I", flags) + bytes(52) + b"".join(parts)


def text(value, wide):
    return struct.pack("<H", len(value)) + value.encode("utf-16-le" if wide else "cp1252")


def network(share, device):
    names = share + b"\0" + device + b"\0"
    offsets = (0x14, 0x14 + len(share) + 1)
    return struct.pack("<IIIII", 0x14 + len(names), 3, *offsets, 0x20000) + names


def wide_network(share, device):
    name = share.encode("utf-16-le") + b"\0\0"
    drive = device.encode("utf-16-le") + b"\0\0"
    size = 0x1E + len(name) + len(drive)
    return struct.pack("<7I", size, 3, 0x1C, 0x1C, 0x20000, 0x1E, 0x1E + len(name)) + b"\0\0" + name + drive


def info(local, suffix, net=b"", wide=None):
    header = 0x24 if wide else 0x1C
    body = b""

    def add(part):
        nonlocal body
        at = header + len(body)
        body += part
        return at

    volume = add(struct.pack("<IIII", 0x11, 3, 1, 0x10) + b"\0")
    path = add(local + b"\0")
    share = add(net) if net else 0
    rest = add(suffix + b"\0")
    more = b""
    if wide:
        more = struct.pack("<II", *[add(t.encode("utf-16-le") + b"\0\0") for t in wide])
    flags = 3 if net else 1
    return struct.pack("<7I", header + len(body), header, flags, volume, path, share, rest) + more + body


def variables(ansi, wide):
    return struct.pack("<II", 0x314, 0xA0000001) + ansi.ljust(260, b"\0") + wide.encode("utf-16-le").ljust(520, b"\0")


END = struct.pack("<I", 0)
ID_LIST = struct.pack("<H", 22) + struct.pack("<H", 20) + bytes(18) + struct.pack("<H", 0)

SEEDS = {
    "bare": link(0),
    "local": link(0x3, ID_LIST, info(b"C:\\p\\a.jpg", b""), END),
    "wide": link(0x82, info(b"C:\\?", b"?", wide=("C:\\\u0416", "a.jpg")), END),
    "share": link(0x2, info(b"C:\\", b"a.jpg", network(b"\\\\s\\x", b"Z:")), END),
    "wideshare": link(0x2, info(b"C:\\", b"a.jpg", wide_network("\\\\s\\x", "Z:")), END),
    "texts": link(0xFC, *[text(t, True) for t in ("n", "..\\a.jpg", "C:\\p", "/x", "i")], END),
    "codepage": link(0x18, text("..\\\u00e4.jpg", False), text("C:\\p", False), END),
    "variables": link(0x200, variables(b"%X%\\a.jpg", "%X%\\a.jpg"), END),
}

folder = pathlib.Path(__file__).parent / "seeds"
folder.mkdir(exist_ok=True)
for name, content in SEEDS.items():
    (folder / f"{name}.lnk").write_bytes(content)
