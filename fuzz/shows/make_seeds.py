#!/usr/bin/env python3
"""Writes the seeds of the slide shows: python3 fuzz/shows/make_seeds.py"""

import pathlib

OPTIONS = ["1", '"C:\\Music\\a.wav"', "3", "-1", "7", "0", "-1", "-1", "0", "-1"]


def show(version, options, *items, end="\r\n"):
    return end.join(['"Tavrix Slide Show"', f'"{version}"', *options, *items, ""])


SHOWS = {
    "current.tvs": show("Version 1.5", OPTIONS, '"C:\\p\\a.bmp"', '"A"', '"b.bmp"', '""').encode(),
    "older.tvs": show("Version 1.X", OPTIONS[:7], '"C:\\p\\a.bmp"', '"b.bmp"').encode(),
    "commas.tvs": b"Tavrix Slide Show,Version 1.5,0, ,0,0,5.5,0,0,0,-1,+1,a.bmp,\"A, a\",,\r\n",
    "lines.tvs": show("Version 1.5", OPTIONS, "a.bmp", "about a", "", end="\n").encode(),
    "codepage.tvs": show("Version 1.5", OPTIONS, '"C:\\Bär.bmp"', '"5 €"').encode("cp1252"),
    "wide.tvs": show("Version 1.5", OPTIONS, '"C:\\Bär.bmp"', '"日本"').encode(),
    "marked.tvs": show("Version 1.5", OPTIONS, '"C:\\Bär.bmp"', '""').encode("utf-8-sig"),
    "quotes.tvs": show("Version 1.5", OPTIONS, '"a.bmp"', '"say "hi" now"', '"b.bmp"', '"B"').encode(),
    "cut.tvs": show("Version 1.5", OPTIONS, '"a.bmp"', '"never closed').encode(),
    "other.tvs": show("Version 1.6", OPTIONS).encode(),
    "long.tvs": show("Version 1.5", OPTIONS, '"a.bmp"', '"' + 210 * "ä" + '"').encode(),
}

folder = pathlib.Path(__file__).parent / "seeds"
folder.mkdir(exist_ok=True)
for name, content in SHOWS.items():
    (folder / name).write_bytes(content)
