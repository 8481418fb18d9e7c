#!/usr/bin/env python3
"""Draws the pictures of a text file, one character a pixel, as bitmap and cursor files.

    tools/draw_pictures.py PICTURES.txt FOLDER

The text has these lines, in blocks that blank lines may part; // begins a comment outside of rows:

    colour CHARACTER NAME            what a character stands for from here on
    bitmap NAME WIDTH HEIGHT         followed by HEIGHT rows of WIDTH characters: FOLDER/NAME.bmp
    cursor NAME WIDTH HEIGHT X Y     the same with the hot spot at X, Y: FOLDER/NAME.cur

Bitmaps have 4 bits a pixel and the system's 16 colours, cursors 1 bit: black, white and clear.
"""
import pathlib
import struct
import sys

# In the palette's order.
COLOURS = {
    "black": 0x000000, "maroon": 0x800000, "green": 0x008000, "olive": 0x808000,
    "navy": 0x000080, "purple": 0x800080, "teal": 0x008080, "silver": 0xC0C0C0,
    "grey": 0x808080, "red": 0xFF0000, "lime": 0x00FF00, "yellow": 0xFFFF00,
    "blue": 0x0000FF, "fuchsia": 0xFF00FF, "aqua": 0x00FFFF, "white": 0xFFFFFF,
}
ENTRIES = {name: entry for entry, name in enumerate(COLOURS)}
CLEAR = "clear"  # in cursors: what is below shows


class PictureError(Exception):
    pass


def packed_rows(values, bits):
    """Rows of numbers of so many bits, from the bottom, each filled up to whole 4 bytes."""
    data = b""
    for row in reversed(values):
        padded = [*row, *[0] * (-len(row) % (32 // bits))]
        line = 0
        for value in padded:
            line = line << bits | value
        data += line.to_bytes(len(padded) * bits // 8, "big")
    return data


def info_header(width, height, bits, size):
    return struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, 0, size, 0, 0, 0, 0)


def bitmap_file(rows):
    if any(name == CLEAR for row in rows for name in row):
        raise PictureError("a bitmap has no clear pixels")
    pixels = packed_rows([[ENTRIES[name] for name in row] for row in rows], 4)
    palette = b"".join(struct.pack("<I", rgb) for rgb in COLOURS.values())
    head = info_header(len(rows[0]), len(rows), 4, len(pixels)) + palette
    offset = 14 + len(head)
    return struct.pack("<2sIHHI", b"BM", offset + len(pixels), 0, 0, offset) + head + pixels


def cursor_file(rows, hot_x, hot_y):
    if any(name not in ("black", "white", CLEAR) for row in rows for name in row):
        raise PictureError("a cursor is black, white and clear")
    picture = packed_rows([[int(name == "white") for name in row] for row in rows], 1)
    mask = packed_rows([[int(name == CLEAR) for name in row] for row in rows], 1)
    width, height = len(rows[0]), len(rows)
    palette = struct.pack("<II", COLOURS["black"], COLOURS["white"])
    # The height counts picture and mask.
    body = info_header(width, 2 * height, 1, len(picture) + len(mask)) + palette + picture + mask
    entry = struct.pack("<BBBBHHII", width, height, 2, 0, hot_x, hot_y, len(body), 6 + 16)
    return struct.pack("<HHH", 0, 2, 1) + entry + body


def read_rows(lines, number, width, height, colours):
    rows = []
    for line in lines[number:number + height]:
        if len(line) != width or any(character not in colours for character in line):
            raise PictureError(f"line {number + len(rows) + 1} is no row of {width} known pixels")
        rows.append([colours[character] for character in line])
    if len(rows) != height:
        raise PictureError("the last picture has too few rows")
    return rows


def drawn_files(text):
    """The names and bytes of the files that the text asks for."""
    lines = text.splitlines()
    colours = {}
    number = 0
    while number < len(lines):
        words = lines[number].split("//")[0].split()
        number += 1
        if not words:
            continue
        kind, *arguments = words
        if kind == "colour" and len(arguments) == 2 and len(arguments[0]) == 1:
            if arguments[1] not in (*COLOURS, CLEAR):
                raise PictureError(f"line {number}: no colour is called {arguments[1]}")
            colours[arguments[0]] = arguments[1]
        elif (kind, len(arguments)) in (("bitmap", 3), ("cursor", 5)):
            name, (width, height, *hot_spot) = arguments[0], map(int, arguments[1:])
            rows = read_rows(lines, number, width, height, colours)
            number += height
            if kind == "bitmap":
                yield f"{name}.bmp", bitmap_file(rows)
            else:
                yield f"{name}.cur", cursor_file(rows, *hot_spot)
        else:
            raise PictureError(f"line {number} is neither a colour nor a picture")


def main():
    source, folder = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    try:
        for name, data in drawn_files(source.read_text(encoding="utf-8")):
            (folder / name).write_bytes(data)
    except (PictureError, ValueError) as error:
        sys.exit(f"{source}: {error}")


if __name__ == "__main__":
    main()
