#!/usr/bin/env python3
"""Lays out a ribbon template, a resource of type "RT_DLG", from two strips of images.

    ribbon-template.py LARGE.png SMALL.png OUT

LARGE.png holds images of 32 by 32 pixels side by side, SMALL.png images of 16 by 16, both with 8 bits a channel
and without interlacing. docs/ribbon.md explains the layout. Its price: the first three pixels of the lowest row
of LARGE.png are lost and come out transparent.
"""
import pathlib
import struct
import sys
import zlib

CHANNELS = {2: 3, 6: 4}  # PNG's colour types: true colour, without and with alpha
PIXELS_LOST = 3
MOST_ITEMS = 0xFFFF


def fail(message):
    sys.exit(f"ribbon-template.py: {message}")


# --- PNG


def chunks_of(data):
    at = 8
    while at < len(data):
        (length,) = struct.unpack_from(">I", data, at)
        yield data[at + 4 : at + 8], data[at + 8 : at + 8 + length]
        at += length + 12


def nearest(left, up, corner):
    """PNG's predictor: whichever of the three is nearest to left + up - corner."""
    guess = left + up - corner
    return min((left, up, corner), key=lambda value: abs(guess - value))


PREDICTORS = [
    lambda left, up, corner: 0,
    lambda left, up, corner: left,
    lambda left, up, corner: up,
    lambda left, up, corner: (left + up) // 2,
    nearest,
]


def rows_of(raw, width, height, channels):
    """The rows of an image's filtered bytes, from the top."""
    stride = width * channels
    former = bytearray(stride)
    for y in range(height):
        start = y * (stride + 1)
        predict = PREDICTORS[raw[start]]
        row = bytearray(raw[start + 1 : start + 1 + stride])
        for i in range(stride):
            left, corner = (row[i - channels], former[i - channels]) if i >= channels else (0, 0)
            row[i] = (row[i] + predict(left, former[i], corner)) & 0xFF
        yield row
        former = row


def read_strip(path):
    """Width, height, and the pixels as a bitmap has them: blue, green, red, alpha, from the bottom row up."""
    data = pathlib.Path(path).read_bytes()
    if not data.startswith(b"\x89PNG\r\n\x1a\n"):
        fail(f"{path} is no PNG")
    chunks = list(chunks_of(data))
    width, height, bits, colors, _, _, interlaced = struct.unpack(">IIBBBBB", chunks[0][1])
    if bits != 8 or colors not in CHANNELS or interlaced:
        fail(f"{path}: want 8 bits a channel, true colour, no interlacing")
    raw = zlib.decompress(b"".join(content for name, content in chunks if name == b"IDAT"))
    channels = CHANNELS[colors]
    pixels = []
    for row in rows_of(raw, width, height, channels):
        colors_of_row = (row[i : i + channels] for i in range(0, len(row), channels))
        pixels.insert(0, b"".join(bytes((c[2], c[1], c[0], c[3] if channels == 4 else 255)) for c in colors_of_row))
    return width, height, b"".join(pixels)


# --- The template


def bitmap_header(width, height):
    return struct.pack("<IiiHHIIiiII", 40, width, height, 1, 32, 0, 0, 0, 0, 0, 0)


def lay_out(large, small):
    large_width, large_height, large_pixels = large
    small_width, small_height, small_pixels = small
    items = len(large_pixels) // 4 - PIXELS_LOST
    if not 0 < items <= MOST_ITEMS:
        fail(f"the large strip may have {MOST_ITEMS + PIXELS_LOST} pixels at most")
    if len(small_pixels) > len(large_pixels):
        fail("the small strip must not be larger than the large one")
    header = bytes(18) + struct.pack("<HHHH", 0, 0, 1, 0)
    # An entry without class and text; what follows its counts is the large strip, three pixels late.
    entry = bytes(16) + struct.pack("<HHHHH", 0, 0, 0, items, 0) + large_pixels[4 * PIXELS_LOST :]
    large_record = bitmap_header(large_width, large_height) + small_pixels.ljust(len(large_pixels), b"\0")
    small_record = bitmap_header(small_width, small_height) + bytes(len(small_pixels))
    return header + entry + large_record + small_record


def main(arguments):
    if len(arguments) != 3:
        fail("usage: ribbon-template.py LARGE.png SMALL.png OUT")
    large, small = (read_strip(path) for path in arguments[:2])
    for (width, height, _), size in ((large, 32), (small, 16)):
        if height != size or width % size:
            fail(f"a strip of {width} by {height} pixels does not hold images of {size} by {size}")
    pathlib.Path(arguments[2]).write_bytes(lay_out(large, small))


if __name__ == "__main__":
    main(sys.argv[1:])
