#!/usr/bin/env python3
"""Draws the pictures of the demonstration suite and the program's icon.

    demo/pictures/draw.py          writes the pictures next to this script
                                   and menu/trelin.ico

The pictures are committed; the build does not run this. The output is the
same bytes every time. A picture is a list of shapes, painted one over the
other on 32 by 32 units with the light from the top left. Each pixel takes the
colour that covers most of it, so edges stay hard, as a mask needs them, and a
dark outline is laid around the whole.
"""

import math
import struct
from collections import Counter
from pathlib import Path

SIZE = 32
SAMPLES = 6  # a pixel and direction
MASK = (192, 192, 192)  # not drawn by the launcher in a picture without a mask
OUTLINE = (24, 28, 44)

WHITE = (255, 255, 255)
INK = (24, 28, 44)
STEEL = [(240, 244, 250), (206, 214, 226), (166, 176, 194), (120, 132, 154), (78, 90, 114)]
BLUE = [(176, 214, 255), (104, 166, 244), (48, 116, 216), (24, 78, 168), (14, 48, 112)]
AMBER = [(255, 240, 170), (255, 210, 84), (240, 168, 32), (196, 120, 12), (136, 76, 4)]
RUBY = [(255, 196, 196), (255, 104, 104), (226, 32, 48), (164, 8, 32), (104, 0, 24)]
GREEN = [(188, 240, 176), (104, 206, 96), (40, 160, 56), (16, 112, 40), (8, 72, 28)]


# Shapes: functions that say whether a point lies inside.


def rect(x0, y0, x1, y1):
    return lambda x, y: x0 <= x < x1 and y0 <= y < y1


def ellipse(cx, cy, rx, ry=None):
    ry = ry or rx
    return lambda x, y: ((x - cx) / rx) ** 2 + ((y - cy) / ry) ** 2 < 1


def polygon(*points):
    def inside(x, y):
        odd = False
        for (x0, y0), (x1, y1) in zip(points, points[1:] + points[:1]):
            if (y0 > y) != (y1 > y) and x < x0 + (y - y0) * (x1 - x0) / (y1 - y0):
                odd = not odd
        return odd

    return inside


def stroke(width, *points):
    def near(x, y):
        for (x0, y0), (x1, y1) in zip(points, points[1:]):
            dx, dy = x1 - x0, y1 - y0
            t = max(0, min(1, ((x - x0) * dx + (y - y0) * dy) / (dx * dx + dy * dy)))
            if math.hypot(x - x0 - t * dx, y - y0 - t * dy) < width / 2:
                return True
        return False

    return near


def gear(cx, cy, teeth, outer, root, turn=0.0):
    def inside(x, y):
        phase = (math.atan2(y - cy, x - cx) / (2 * math.pi) * teeth + turn) % 1
        flank = min(1, max(0, (0.36 - abs(phase - 0.5)) / 0.12))
        return math.hypot(x - cx, y - cy) < root + (outer - root) * flank

    return inside


def both(first, second):
    return lambda x, y: first(x, y) and second(x, y)


def without(first, second):
    return lambda x, y: first(x, y) and not second(x, y)


# Paints: functions that give the colour of a point.


def bands(colors, x0, y0, x1, y1):
    """The colours in equal bands from one point to the other."""
    length = (x1 - x0) ** 2 + (y1 - y0) ** 2

    def paint(x, y):
        t = ((x - x0) * (x1 - x0) + (y - y0) * (y1 - y0)) / length
        return colors[max(0, min(len(colors) - 1, int(t * len(colors))))]

    return paint


def ball(colors, cx, cy, radius):
    """The shading of a ball, lit from the top left."""

    def paint(x, y):
        t = math.hypot(x - cx + radius * 0.4, y - cy + radius * 0.4) / (radius * 1.5)
        return colors[min(len(colors) - 1, int(t * len(colors)))]

    return paint


def render(shapes, outline=OUTLINE):
    """The pixels, row by row: a colour, or None where nothing is drawn."""
    shapes = [(s, p if callable(p) else lambda x, y, p=p: p) for s, p in shapes]

    def sample(x, y):
        for shape, paint in reversed(shapes):
            if shape(x, y):
                return paint(x, y)
        return None

    def pixel(column, row):
        steps = [(i + 0.5) / SAMPLES for i in range(SAMPLES)]
        found = Counter(sample(column + dx, row + dy) for dy in steps for dx in steps)
        empty = found.pop(None, 0)
        return None if empty * 2 > SAMPLES**2 else found.most_common(1)[0][0]

    pixels = [[pixel(c, r) for c in range(SIZE)] for r in range(SIZE)]

    def beside(c, r):
        around = [(c - 1, r), (c + 1, r), (c, r - 1), (c, r + 1)]
        return any(0 <= x < SIZE and 0 <= y < SIZE and pixels[y][x] for x, y in around)

    return [
        [pixels[r][c] or (outline if beside(c, r) else None) for c in range(SIZE)]
        for r in range(SIZE)
    ]


# The pictures.


def runtime():
    """Common Runtime: a store of three discs, and a gear for what runs on it."""
    shapes = []
    for top in (20, 12, 4):
        side = bands([BLUE[1], BLUE[0], BLUE[1], BLUE[2], BLUE[2], BLUE[3]], 2, 0, 22, 0)
        shapes += [
            (ellipse(12, top + 6.2, 10.5, 3.9), INK),
            (rect(1.5, top, 22.5, top + 6), side),
            (ellipse(12, top + 5.6, 10.5, 3.6), side),
            (ellipse(12, top, 10.5, 3.5), BLUE[3]),
            (ellipse(12, top - 0.2, 9.6, 2.6), bands([BLUE[0], BLUE[1]], 2, 1, 22, 7)),
        ]
    gold = bands([AMBER[0], AMBER[1], AMBER[1], AMBER[2], AMBER[3]], 17, 16, 28, 29)
    return shapes + [
        (gear(22.5, 22.5, 8, 9.3, 7.2), INK),
        (gear(22.5, 22.5, 8, 8.3, 5.8), gold),
        (ellipse(22.5, 22.5, 3.2), INK),
        (ellipse(22.7, 22.7, 2.2), BLUE[2]),
    ]


def sensors():
    """Sensor Drivers: a ruby ball on its stylus, probing."""
    steel = bands([STEEL[1], STEEL[0], STEEL[1], STEEL[2], STEEL[3]], 10, 0, 22, 0)
    dark = bands([STEEL[3], STEEL[2], STEEL[3], STEEL[4], STEEL[4]], 8, 0, 24, 0)
    return [
        (rect(8, 1, 24, 7), dark),
        (rect(8, 6, 24, 7), INK),
        (polygon((10, 7), (22, 7), (19, 12), (13, 12)), steel),
        (rect(14, 12, 18, 14), dark),
        (rect(15, 13, 17, 22), bands([STEEL[0], STEEL[2]], 15, 0, 17, 0)),
        (rect(10, 3, 12, 5), GREEN[1]),
        (ellipse(16, 24.5, 6), INK),
        (ellipse(16, 24.5, 5.6), ball([RUBY[1], RUBY[2], RUBY[2], RUBY[3], RUBY[4]], 16, 24.5, 5.6)),
        (ellipse(14, 22.2, 1.3), WHITE),
        (polygon((2, 25), (7, 22), (7, 28)), BLUE[2]),
        (polygon((30, 25), (25, 22), (25, 28)), BLUE[2]),
    ]


def inspect():
    """Inspection Station: a measuring machine, its bridge over a workpiece."""
    column = bands([STEEL[0], STEEL[1], STEEL[2], STEEL[3]], 0, 0, 5, 0)

    def leg(left):
        return lambda x, y: column(x - left, y)

    return [
        (rect(1, 23, 31, 27), bands([STEEL[3], STEEL[4]], 0, 23, 0, 27)),
        (rect(1, 23, 31, 24), STEEL[2]),
        (rect(4, 27, 8, 31), STEEL[4]),
        (rect(24, 27, 28, 31), STEEL[4]),
        (rect(2, 7, 7, 23), leg(2)),
        (rect(25, 7, 30, 23), leg(25)),
        (rect(1, 4, 31, 10), bands([BLUE[0], BLUE[1], BLUE[2], BLUE[2], BLUE[3], INK], 0, 4, 0, 10)),
        (rect(12, 1, 20, 12), INK),
        (rect(13, 2, 19, 11), bands([STEEL[0], STEEL[1], STEEL[2], STEEL[3]], 13, 0, 19, 0)),
        (rect(14, 4, 18, 6), GREEN[1]),
        (rect(15, 12, 17, 17), bands([STEEL[1], STEEL[4]], 15, 0, 17, 0)),
        (ellipse(16, 17.5, 1.8), RUBY[2]),
        (rect(15, 16, 16, 17), RUBY[0]),
        (polygon((9, 23), (9, 20), (12, 20), (12, 19), (20, 19), (20, 20), (23, 20), (23, 23)), INK),
        (rect(10, 21, 22, 23), bands([AMBER[1], AMBER[2], AMBER[3]], 10, 0, 22, 0)),
        (rect(13, 20, 19, 21), AMBER[0]),
    ]


def gear_picture():
    """Gear Evaluation: a gear and the arrows that dimension it."""
    gold = bands([AMBER[0], AMBER[1], AMBER[1], AMBER[2], AMBER[2], AMBER[3]], 6, 2, 26, 23)
    return [
        (gear(16, 12, 10, 11.4, 8.6, 0.5), gold),
        (ellipse(16, 12, 6), AMBER[3]),
        (ellipse(16, 12, 5), bands([AMBER[2], AMBER[1], AMBER[0]], 12, 8, 20, 16)),
        (ellipse(16, 12, 3.3), INK),
        (rect(1, 20, 3, 31), BLUE[3]),
        (rect(29, 20, 31, 31), BLUE[3]),
        (rect(5, 27, 27, 29), BLUE[2]),
        (polygon((3, 28), (8, 25), (8, 31)), BLUE[2]),
        (polygon((29, 28), (24, 25), (24, 31)), BLUE[2]),
    ]


def optics():
    """Optical Measuring: a microscope over a lit stage."""
    tube = bands([STEEL[0], STEEL[1], STEEL[2], STEEL[3]], 8.5, 7.5, 14, 12)
    return [
        (stroke(4.4, (17, 6), (22, 10), (24, 16), (22, 22), (18, 26)), BLUE[3]),
        (stroke(2.2, (17, 5.6), (21.4, 9.6), (23.2, 16), (21.4, 21.8), (17, 26)), BLUE[1]),
        (polygon((6, 31), (6, 29), (10, 26), (25, 26), (28, 29), (28, 31)), BLUE[3]),
        (polygon((10, 27), (24, 27), (26, 29), (8, 29)), BLUE[2]),
        (rect(4, 21, 19, 23), STEEL[3]),
        (rect(4, 21, 19, 22), STEEL[1]),
        (rect(8, 19, 14, 21), RUBY[2]),
        (rect(8, 19, 14, 20), RUBY[1]),
        (polygon((14.5, 1), (20.5, 3.5), (13, 17), (8, 14.5)), tube),
        (polygon((8.5, 13.5), (13.5, 16), (12.5, 18.5), (9, 17)), STEEL[4]),
        (polygon((14.8, 1), (21, 3.8), (19.5, 6.6), (13.4, 3.8)), INK),
        (ellipse(21.5, 16.5, 2.6), INK),
        (ellipse(21.5, 16.5, 1.7), AMBER[1]),
    ]


def reports():
    """Report Designer: a page with a bar chart and its tolerance line."""
    page = polygon((4, 1), (21, 1), (28, 8), (28, 31), (4, 31))
    return [
        (page, bands([WHITE, WHITE, STEEL[0], STEEL[1]], 4, 1, 30, 34)),
        (polygon((20, 1), (20, 9), (28, 9), (21, 1)), INK),
        (polygon((21, 1.5), (21, 8), (27.5, 8)), STEEL[1]),
        (rect(7, 4, 17, 6), BLUE[3]),
        (rect(7, 8, 18, 9), STEEL[2]),
        (rect(7, 11, 8, 28), INK),
        (rect(7, 27, 26, 28), INK),
        (rect(9, 21, 13, 27), bands([GREEN[1], GREEN[2], GREEN[2], GREEN[3]], 9, 0, 13, 0)),
        (rect(14, 17, 18, 27), bands([BLUE[1], BLUE[2], BLUE[2], BLUE[3]], 14, 0, 18, 0)),
        (rect(19, 13, 23, 27), bands([AMBER[1], AMBER[2], AMBER[2], AMBER[3]], 19, 0, 23, 0)),
        (rect(8, 15, 26, 16), RUBY[2]),
    ]


VGA = [
    (0, 0, 0), (128, 0, 0), (0, 128, 0), (128, 128, 0),
    (0, 0, 128), (128, 0, 128), (0, 128, 128), (192, 192, 192),
    (128, 128, 128), (255, 0, 0), (0, 255, 0), (255, 255, 0),
    (0, 0, 255), (255, 0, 255), (0, 255, 255), (255, 255, 255),
]  # fmt: skip


def program_icon():
    """The launcher: a setup disc between the jaws of a caliper."""
    black, white, silver, grey = VGA[0], VGA[15], VGA[7], VGA[8]
    navy, blue, teal, cyan, yellow, olive = VGA[4], VGA[12], VGA[6], VGA[14], VGA[11], VGA[3]
    disc = ellipse(16, 20.5, 9.8)

    def wedges(*points):  # and their reflections in the centre of the disc
        across = [(32 - x, 41 - y) for x, y in points]
        one, other = (both(disc, polygon((16, 20.5), *ends)) for ends in (points, across))
        return lambda x, y: one(x, y) or other(x, y)

    return [
        (disc, teal),
        (wedges((0, 12), (8, 0), (17, 0)), cyan),
        (wedges((5, 3), (13, 0)), white),
        (ellipse(16, 20.5, 4.6), navy),
        (ellipse(16, 20.5, 3.6), silver),
        (ellipse(16, 20.5, 1.6), black),
        (polygon((1, 8), (6, 8), (6, 25), (1, 17)), silver),
        (rect(5, 8, 6, 25), grey),
        (rect(1, 8, 2, 17), white),
        (polygon((26, 8), (31, 8), (31, 17), (26, 25)), yellow),
        (rect(30, 8, 31, 18), olive),
        (rect(1, 2, 31, 9), silver),
        (rect(1, 2, 31, 3), white),
        (rect(1, 8, 31, 9), grey),
        (rect(22, 1, 31, 10), yellow),
        (rect(22, 9, 26, 10), olive),
        (rect(30, 1, 31, 10), olive),
        (rect(21, 1, 22, 10), black),
        (rect(24, 4, 29, 7), blue),
        (rect(24, 4, 29, 5), cyan),
    ] + [(rect(x, 3, x + 1, 7 if x % 6 == 3 else 5), black) for x in range(3, 21, 3)]


# The file formats.


def indexed(pixels, palette, empty):
    return [[empty if c is None else palette.index(c) for c in row] for row in pixels]


def colors_of(pixels):
    return sorted({c for row in pixels for c in row if c})


def packed_rows(rows, bits):
    """Rows from the bottom up, each padded to four bytes."""
    data = b""
    for row in reversed(rows):
        number = 0
        for value in row:
            number = number << bits | value
        line = number.to_bytes(len(row) * bits // 8, "big")
        data += line + bytes(-len(line) % 4)
    return data


def bitmap_header(height, bits, data_size):
    return struct.pack("<IiiHHIIiiII", 40, SIZE, height, 1, bits, 0, data_size, 0, 0, 0, 0)


def color_table(palette, bits):
    table = b"".join(bytes((b, g, r, 0)) for r, g, b in palette)
    return table + bytes(4 * 2**bits - len(table))


def bmp(pixels):
    """8 bits a pixel; the background is the mask colour."""
    palette = [MASK] + colors_of(pixels)
    assert MASK not in palette[1:] and len(palette) <= 256
    data = packed_rows(indexed(pixels, palette, 0), 8)
    table = color_table(palette, 8)
    offset = 14 + 40 + len(table)
    header = struct.pack("<2sIHHI", b"BM", offset + len(data), 0, 0, offset)
    return header + bitmap_header(SIZE, 8, len(data)) + table + data


def ico(pixels, palette=None, bits=8):
    """One image: the colours, black where nothing is drawn, then the mask."""
    palette = palette or [(0, 0, 0)] + colors_of(pixels)
    assert len(palette) <= 2**bits
    data = packed_rows(indexed(pixels, palette, 0), bits)
    data += packed_rows([[int(c is None) for c in row] for row in pixels], 1)
    image = bitmap_header(2 * SIZE, bits, len(data)) + color_table(palette, bits) + data
    entry = struct.pack("<BBBBHHII", SIZE, SIZE, 2**bits % 256, 0, 1, bits, len(image), 22)
    return struct.pack("<HHH", 0, 1, 1) + entry + image


def lzw(values, bits):
    """The compressed codes of a GIF image, in sub-blocks."""
    clear, end = 1 << bits, (1 << bits) + 1
    table = {(i,): i for i in range(clear)}
    width, codes, prefix = bits + 1, [(clear, bits + 1)], ()
    for value in values:
        if prefix + (value,) in table:
            prefix += (value,)
            continue
        codes.append((table[prefix], width))
        table[prefix + (value,)] = len(table) + 2  # the codes clear and end stand between
        if len(table) + 1 == 1 << width:
            width += 1
        prefix = (value,)
    codes += [(table[prefix], width)]
    codes += [(end, width + (len(table) + 2 == 1 << width))]
    number = shift = 0
    for code, size in codes:
        number |= code << shift
        shift += size
    data = number.to_bytes((shift + 7) // 8, "little")
    blocks = [data[i : i + 255] for i in range(0, len(data), 255)]
    return b"".join(bytes([len(block)]) + block for block in blocks) + b"\0"


def gif(pixels):
    """One image, whose colour 0 is transparent."""
    palette = [MASK] + colors_of(pixels)
    bits = max(2, (len(palette) - 1).bit_length())
    palette += [(0, 0, 0)] * (2**bits - len(palette))
    values = [value for row in indexed(pixels, palette, 0) for value in row]
    screen = struct.pack("<6sHHBBB", b"GIF89a", SIZE, SIZE, 0xF0 | bits - 1, 0, 0)
    control = struct.pack("<BBBBHBB", 0x21, 0xF9, 4, 1, 0, 0, 0)
    image = struct.pack("<BHHHHBB", 0x2C, 0, 0, SIZE, SIZE, 0, bits)
    return screen + bytes(sum(palette, ())) + control + image + lzw(values, bits) + b";"


def main():
    here = Path(__file__).resolve().parent
    for name, picture in {
        "runtime.bmp": bmp(render(runtime())),
        "sensors.gif": gif(render(sensors())),
        "inspect.ico": ico(render(inspect())),
        "gear.bmp": bmp(render(gear_picture())),
        "optics.ico": ico(render(optics())),
        "reports.gif": gif(render(reports())),
        "../../menu/trelin.ico": ico(render(program_icon(), VGA[0]), VGA, 4),
    }.items():
        (here / name).write_bytes(picture)


if __name__ == "__main__":
    main()
