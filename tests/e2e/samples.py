"""The pictures that lie beside the program, for folders of mixed files."""

import os
import shutil

SAMPLES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "samples")
# All kinds that are opened; those that are imported only are files of the program, too.
OPENED = (".bmp", ".dib", ".jpg", ".gif", ".wmf", ".emf", ".ico", ".rle", ".cur")
IMPORTED = (".pcx", ".tga")
FILES = 40


def put_samples(folder, kinds=OPENED):
    """Puts forty pictures of these kinds there; their names, in order."""
    samples = [name for name in sorted(os.listdir(SAMPLES)) if name.endswith(kinds)]
    names = [f"{number:02}-{samples[number % len(samples)]}" for number in range(1, FILES + 1)]
    for name in names:
        shutil.copy(os.path.join(SAMPLES, name[3:]), os.path.join(folder, name))
    return names
