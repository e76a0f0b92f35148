#!/usr/bin/python3
"""Puts pictures of the gallery side by side.

    scripts/contact-sheet.py SHEET FOLDER NAME...

SHEET is the PNG that is written: of each NAME, the picture NAME.png in FOLDER, with its name below it. All are
reduced alike, the widest to a column's width; one that is as narrow already stays as it is.
"""

import pathlib
import sys

from PIL import Image, ImageDraw

COLUMNS = 3
WIDTH = 600
MARGIN = 12
CAPTION = 16
PAPER = (128, 128, 128)
SHADES = 255


def cells_of(folder, names):
    pictures = [(name, Image.open(folder / f"{name}.png").convert("RGB")) for name in names]
    widest = max(picture.width for _, picture in pictures)
    factor = min(WIDTH / widest, 1)
    for name, picture in pictures:
        size = round(picture.width * factor), round(picture.height * factor)
        yield name, picture.resize(size, Image.Resampling.LANCZOS)


def places_of(cells, width):
    """Of each cell its corner, row by row, and the height of all."""
    places, x, y, row_height = [], MARGIN, MARGIN, 0
    for _, cell in cells:
        if x > MARGIN and x + cell.width + MARGIN > width:
            x, y, row_height = MARGIN, y + row_height, 0
        places.append((x, y))
        x += cell.width + MARGIN
        row_height = max(row_height, cell.height + CAPTION + MARGIN)
    return places, y + row_height


def main():
    if len(sys.argv) < 4:
        sys.exit(__doc__)
    cells = list(cells_of(pathlib.Path(sys.argv[2]), sys.argv[3:]))
    width = MARGIN + COLUMNS * (WIDTH + MARGIN)
    places, height = places_of(cells, width)
    sheet = Image.new("RGB", (width, height), PAPER)
    draw = ImageDraw.Draw(sheet)
    for (name, cell), (x, y) in zip(cells, places):
        sheet.paste(cell, (x, y))
        draw.text((x, y + cell.height + 2), name, fill=(255, 255, 255))
    sheet.quantize(SHADES).save(sys.argv[1], optimize=True)


if __name__ == "__main__":
    main()
