#!/usr/bin/env python3
"""Turns the drawings of the library and of the gallery into the committed files that their builds use.

gesso/resources/icons/*.svg become the .ico files and the .cur file beside them: each with 48, 32, 24 and 16 pixels,
32-bit with alpha, the cursor with its hot spot in the middle.

gallery/icons/*.svg become gallery/ribbon-32.png and ribbon-16.png, the strips of the ribbon's images, in the order of
the enumerators in gallery/EditorRibbon.h: IMAGE_SELECT_ALL is select-all.svg. What lies on even coordinates of a
drawing's 32 by 32 units is sharp in both. ribbon-32-dark.png and ribbon-16-dark.png are the same for dark grounds.

Needs rsvg-convert (Debian's librsvg2-bin). Run it after changing a drawing, and commit what it writes.
"""
import pathlib
import re
import struct
import subprocess
import sys
import zlib

ROOT = pathlib.Path(__file__).resolve().parent.parent
ICONS = ROOT / 'gesso/resources/icons'
GALLERY = ROOT / 'gallery'
SIZES = (48, 32, 24, 16)
CURSORS = ('column-sizing',)
UNITS = 32  # the width and the height of a drawing for the ribbon
STRIP_SIZES = (32, 16)
# What the drawings have for a light ground, and what stands for it on a dark one.
ON_DARK = {'#3d4b5f': '#d3dbe6', '#2878d0': '#5aa5f2', '#cfe2f6': '#35587c', '#ffffff': '#22303f'}


def render(svg, size):
    """Rows of (r, g, b, a) pixels, from the PNG that rsvg-convert writes (8-bit RGBA, not interlaced)."""
    png = subprocess.run(['rsvg-convert', '-w', str(size), '-h', str(size), str(svg)],
                         check=True, capture_output=True).stdout
    data, at = b'', 8
    while at < len(png):
        length, kind = struct.unpack('>I4s', png[at:at + 8])
        if kind == b'IDAT':
            data += png[at + 8:at + 8 + length]
        at += 12 + length
    return unfilter(zlib.decompress(data), size)


def unfilter(data, size):
    stride, rows, above = 4 * size, [], bytes(4 * size)
    for y in range(size):
        kind, *line = data[y * (stride + 1):(y + 1) * (stride + 1)]
        for i in range(stride):
            left = line[i - 4] if i >= 4 else 0
            corner = above[i - 4] if i >= 4 else 0
            line[i] = (line[i] + predict(kind, left, above[i], corner)) & 0xFF
        above = bytes(line)
        rows.append([tuple(line[i:i + 4]) for i in range(0, stride, 4)])
    return rows


def predict(kind, left, up, corner):
    if kind == 4:
        estimate = left + up - corner
        return min((left, up, corner), key=lambda value: abs(estimate - value))
    return (0, left, up, (left + up) // 2)[kind]


def bitmap(rows):
    """A device-independent bitmap of an icon: colours from the bottom up, then the mask of what is transparent."""
    size = len(rows)
    header = struct.pack('<IiiHHIIiiII', 40, size, 2 * size, 1, 32, 0, 0, 0, 0, 0, 0)
    colors = b''.join(bytes((b, g, r, a)) for row in reversed(rows) for r, g, b, a in row)
    mask_stride = (size + 31) // 32 * 4
    mask = b''
    for row in reversed(rows):
        bits = ''.join('1' if a == 0 else '0' for _, _, _, a in row).ljust(8 * mask_stride, '0')
        mask += int(bits, 2).to_bytes(mask_stride, 'big')
    return header + colors + mask


def write(path, kind, images):
    """kind 1: an icon; 2: a cursor. images: (size, two words of the directory, bitmap)."""
    offset = 6 + 16 * len(images)
    directory, bodies = struct.pack('<HHH', 0, kind, len(images)), b''
    for size, first, second, body in images:
        directory += struct.pack('<BBBBHHII', size, size, 0, 0, first, second, len(body), offset + len(bodies))
        bodies += body
    path.write_bytes(directory + bodies)


def write_icons():
    for svg in sorted(ICONS.glob('*.svg')):
        if svg.stem in CURSORS:
            write(svg.with_suffix('.cur'), 2,
                  [(size, size // 2, size // 2, bitmap(render(svg, size))) for size in SIZES])
        else:
            write(svg.with_suffix('.ico'), 1, [(size, 1, 32, bitmap(render(svg, size))) for size in SIZES])
        print(svg.stem)


def ribbon_images():
    """The names of the ribbon's images, in their order."""
    names = re.findall(r'^    IMAGE_(\w+),$', (GALLERY / 'EditorRibbon.h').read_text(), re.MULTILINE)
    names = [name.lower().replace('_', '-') for name in names]
    strangers = {svg.stem for svg in (GALLERY / 'icons').glob('*.svg')} ^ set(names)
    if strangers:
        sys.exit(f"icons.py: want both an enumerator and a drawing of {', '.join(sorted(strangers))}")
    return names


def on_dark(drawing):
    for light, dark in ON_DARK.items():
        drawing = drawing.replace(light, dark)
    return drawing


def write_strips():
    names = ribbon_images()
    drawings = ''
    for i, name in enumerate(names):
        drawing = (GALLERY / f'icons/{name}.svg').read_text()
        drawings += drawing.replace('<svg ', f'<svg x="{i * UNITS}" ', 1)
    for size in STRIP_SIZES:
        strip = (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {len(names) * UNITS} {UNITS}" '
                 f'width="{len(names) * size}" height="{size}">{drawings}</svg>')
        for name, shaded in ((f'ribbon-{size}.png', strip), (f'ribbon-{size}-dark.png', on_dark(strip))):
            path = GALLERY / name
            subprocess.run(['rsvg-convert', '-o', str(path)], input=shaded.encode(), check=True)
            print(path.stem)


def main():
    write_icons()
    write_strips()


if __name__ == '__main__':
    sys.exit(main())
