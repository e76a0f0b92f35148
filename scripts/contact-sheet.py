#!/usr/bin/python3
"""Puts pictures of the gallery's pages side by side.

    scripts/contact-sheet.py SHEET FOLDER NAME...

SHEET is the PNG that is written: of each NAME, the picture NAME.png in FOLDER, as wide as a column and three in a
row, with its name below it.
"""

import pathlib
import sys

from PIL import Image, ImageDraw

COLUMNS = 3
WIDTH = 640
MARGIN = 12
CAPTION = 18
PAPER = (128, 128, 128)


def cell_of(path):
    with Image.open(path) as picture:
        height = round(picture.height * WIDTH / picture.width)
        return picture.convert("RGB").resize((WIDTH, height), Image.Resampling.LANCZOS)


def main():
    if len(sys.argv) < 4:
        sys.exit(__doc__)
    folder = pathlib.Path(sys.argv[2])
    cells = [(name, cell_of(folder / f"{name}.png")) for name in sys.argv[3:]]
    row_height = max(cell.height for _, cell in cells) + CAPTION + MARGIN
    rows = (len(cells) + COLUMNS - 1) // COLUMNS
    sheet = Image.new("RGB", (MARGIN + COLUMNS * (WIDTH + MARGIN), MARGIN + rows * row_height), PAPER)
    draw = ImageDraw.Draw(sheet)
    for n, (name, cell) in enumerate(cells):
        x = MARGIN + n % COLUMNS * (WIDTH + MARGIN)
        y = MARGIN + n // COLUMNS * row_height
        sheet.paste(cell, (x, y))
        draw.text((x, y + cell.height + 2), name, fill=(255, 255, 255))
    sheet.quantize(128).save(sys.argv[1], optimize=True)


if __name__ == "__main__":
    main()
