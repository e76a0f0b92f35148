#!/usr/bin/python3
"""Compares pictures pixel by pixel with those that are kept.

    scripts/compare-pictures.py KEPT TAKEN

Every PNG of the folder KEPT has to be in the folder TAKEN, with the same pixels. What differs is told with the
rectangle in which it does, and ends the script with status 1. A picture that is right as it is now is kept by
scripts/pictures.sh.
"""

import pathlib
import sys

from PIL import Image, ImageChops


def difference(kept, taken):
    """What differs, in words; empty for nothing."""
    if not taken.exists():
        return "was not taken"
    with Image.open(kept) as a, Image.open(taken) as b:
        if a.size != b.size:
            return f"is {b.width} x {b.height} pixels now, and was {a.width} x {a.height}"
        delta = ImageChops.difference(a.convert("RGB"), b.convert("RGB"))
    box = delta.getbbox()
    if not box:
        return ""
    count = sum(1 for pixel in delta.crop(box).getdata() if pixel != (0, 0, 0))
    return f"differs in {count} pixels, from ({box[0]}, {box[1]}) to ({box[2]}, {box[3]})"


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    kept, taken = map(pathlib.Path, sys.argv[1:])
    pictures = sorted(kept.glob("*.png"))
    if not pictures:
        sys.exit(f"{kept} has no pictures")
    found = [(picture.name, difference(picture, taken / picture.name)) for picture in pictures]
    for name, what in found:
        if what:
            print(f"{name} {what}")
    bad = sum(1 for _, what in found if what)
    print(f"{len(found) - bad} of {len(found)} pictures are as they are kept")
    sys.exit(1 if bad else 0)


if __name__ == "__main__":
    main()
