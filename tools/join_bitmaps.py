#!/usr/bin/env python3
"""Joins bitmap files side by side.

    tools/join_bitmaps.py JOINED.bmp FIRST.bmp SECOND.bmp ...

All have the same height, bits and palette and rows of whole 4 bytes without filling, as
tools/draw_pictures.py makes them at widths that 8 divides.
"""
import pathlib
import struct
import sys

HEADERS = 14 + 40


def joined(files):
    first = files[0]
    offset, = struct.unpack_from("<I", first, 10)
    width, height, planes, bits = struct.unpack_from("<iiHH", first, 18)
    parts = []
    for data in files:
        if data[:2] != b"BM" or data[10:14] != first[10:14] or data[22:30] != first[22:30]:
            raise ValueError("they are no bitmaps of one kind")
        part_width, = struct.unpack_from("<i", data, 18)
        if data[HEADERS:offset] != first[HEADERS:offset] or part_width * bits % 32:
            raise ValueError("their palettes differ, or a row ends within 4 bytes")
        parts.append((data[offset:], part_width * bits // 8))
    width = sum(size for _, size in parts) * 8 // bits
    pixels = b"".join(data[row * size:(row + 1) * size]
                      for row in range(height) for data, size in parts)
    head = struct.pack("<2sIHHI", b"BM", offset + len(pixels), 0, 0, offset)
    info = struct.pack("<IiiHHIIiiII", 40, width, height, planes, bits, 0, len(pixels), 0, 0, 0, 0)
    return head + info + first[HEADERS:offset] + pixels


def main():
    target, *sources = map(pathlib.Path, sys.argv[1:])
    try:
        target.write_bytes(joined([source.read_bytes() for source in sources]))
    except (ValueError, struct.error) as error:
        sys.exit(f"{target}: {error}")


if __name__ == "__main__":
    main()
