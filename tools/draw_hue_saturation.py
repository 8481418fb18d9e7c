#!/usr/bin/env python3
"""Draws the colour picker's hue and saturation picture as a bitmap file.

    tools/draw_hue_saturation.py WIDTH HEIGHT FILE.bmp

Each pixel is the colour that the picker takes for that point of its field at half brightness: hue
from left to right, saturation from full at the top to none at the bottom. The rule is that of
dialogs/colour/picker_rules (ColourAtPoint); a test compares the two pixel by pixel.
"""
import struct
import sys

HALF_LIGHTNESS = 0.5


def colour_of_hsl(hue, saturation, lightness):
    """Channels 0 to 255 of a hue in degrees and the others as parts of 1, without decimals."""
    if lightness <= 0.5:
        low = (1 - saturation) * lightness
        high = 2 * lightness - low
    else:
        high = (1 - saturation) * lightness + saturation
        low = 2 * lightness - high

    def channel(angle):
        angle %= 360.0
        if angle < 60:
            part = low + (high - low) * angle / 60
        elif angle < 180:
            part = high
        elif angle < 240:
            part = low + (high - low) * (240 - angle) / 60
        else:
            part = low
        return int(part * 255.0)

    return channel(hue + 120), channel(hue), channel(hue - 120)


def colour_at_point(x, y, width, height):
    hue = int(x * (1536.0 / width) / 6 + 0.5)
    saturation = int(256.0 - y * (256.0 / height) + 0.5)
    degrees = min(int(hue * 1.40625 + 0.5), 360)
    percent = max(int((saturation + 1) * 100.0 / 256), 0)
    return colour_of_hsl(float(degrees), min(percent / 100.0, 1.0), HALF_LIGHTNESS)


def bitmap_file(width, height):
    """A bitmap of 24 bits a pixel, its rows from the bottom."""
    row_size = (width * 3 + 3) // 4 * 4
    rows = []
    for y in reversed(range(height)):
        row = b"".join(bytes(reversed(colour_at_point(x, y, width, height))) for x in range(width))
        rows.append(row.ljust(row_size, b"\0"))
    pixels = b"".join(rows)
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(pixels), 0, 0, 0, 0)
    offset = 14 + len(info)
    return struct.pack("<2sIHHI", b"BM", offset + len(pixels), 0, 0, offset) + info + pixels


def main():
    width, height, path = int(sys.argv[1]), int(sys.argv[2]), sys.argv[3]
    with open(path, "wb") as file:
        file.write(bitmap_file(width, height))


if __name__ == "__main__":
    main()
