"""The program's icon: a setup disc between the jaws of a caliper. Each size is
drawn for itself, the three small ones in 16 colours."""

import math

from drawing import *

VGA = [
    (0, 0, 0), (128, 0, 0), (0, 128, 0), (128, 128, 0),
    (0, 0, 128), (128, 0, 128), (0, 128, 128), (192, 192, 192),
    (128, 128, 128), (255, 0, 0), (0, 255, 0), (255, 255, 0),
    (0, 0, 255), (255, 0, 255), (0, 255, 255), (255, 255, 255),
]  # fmt: skip
BLACK, WHITE, SILVER, GREY = VGA[0], VGA[15], VGA[7], VGA[8]
NAVY, VGA_BLUE, TEAL, CYAN, YELLOW, OLIVE = VGA[4], VGA[12], VGA[6], VGA[14], VGA[11], VGA[3]


def icon_16():
    disc = ellipse(8, 10, 5)
    shine = opposite(polygon((8, 10), (0, 8), (0, 0), (6, 0)), 8, 10)
    return [
        (disc, TEAL),
        (both(disc, shine), CYAN),
        (both(disc, opposite(rect(6, 6, 7, 8), 8, 10)), WHITE),
        (ellipse(8, 10, 1.95), SILVER),
        (rect(7, 9, 9, 11), BLACK),
        (polygon((1, 4), (4, 4), (4, 12), (1, 9)), SILVER),
        (rect(3, 4, 4, 12), GREY),
        (rect(1, 4, 2, 9), WHITE),
        (polygon((12, 4), (15, 4), (15, 9), (12, 12)), YELLOW),
        (rect(14, 4, 15, 9), OLIVE),
        (rect(1, 1, 15, 4), SILVER),
        (rect(1, 1, 15, 2), WHITE),
        (rect(10, 1, 15, 5), YELLOW),
        (rect(14, 1, 15, 5), OLIVE),
        (rect(9, 1, 10, 5), BLACK),
        (rect(11, 2, 13, 3), VGA_BLUE),
    ] + [(rect(x, 2, x + 1, 3), BLACK) for x in (3, 5, 7)]


def icon_32():
    disc = ellipse(16, 20.5, 9.8)

    def wedges(*ends):
        return both(disc, opposite(polygon((16, 20.5), *ends), 16, 20.5))

    return [
        (disc, TEAL),
        (wedges((0, 12), (8, 0), (17, 0)), CYAN),
        (wedges((5, 3), (13, 0)), WHITE),
        (ellipse(16, 20.5, 4.6), NAVY),
        (ellipse(16, 20.5, 3.6), SILVER),
        (ellipse(16, 20.5, 1.6), BLACK),
        (polygon((1, 8), (6, 8), (6, 25), (1, 17)), SILVER),
        (rect(5, 8, 6, 25), GREY),
        (rect(1, 8, 2, 17), WHITE),
        (polygon((26, 8), (31, 8), (31, 17), (26, 25)), YELLOW),
        (rect(30, 8, 31, 18), OLIVE),
        (rect(1, 2, 31, 9), SILVER),
        (rect(1, 2, 31, 3), WHITE),
        (rect(1, 8, 31, 9), GREY),
        (rect(22, 1, 31, 10), YELLOW),
        (rect(22, 9, 26, 10), OLIVE),
        (rect(30, 1, 31, 10), OLIVE),
        (rect(21, 1, 22, 10), BLACK),
        (rect(24, 4, 29, 7), VGA_BLUE),
        (rect(24, 4, 29, 5), CYAN),
    ] + [(rect(x, 3, x + 1, 7 if x % 6 == 3 else 5), BLACK) for x in range(3, 21, 3)]


def icon_48():
    disc = ellipse(24, 31, 15)

    def wedges(*ends):
        return both(disc, opposite(polygon((24, 31), *ends), 24, 31))

    return [
        (disc, TEAL),
        (wedges((0, 19), (11, 0), (26, 0)), CYAN),
        (wedges((8, 6), (20, 1)), WHITE),
        (ellipse(24, 31, 7), NAVY),
        (ellipse(24, 31, 5.8), SILVER),
        (ellipse(24, 31, 2.6), BLACK),
        (polygon((1, 12), (9, 12), (9, 38), (1, 27)), SILVER),
        (rect(7, 12, 9, 38), GREY),
        (rect(1, 12, 2, 27), WHITE),
        (polygon((39, 12), (47, 12), (47, 27), (39, 38)), YELLOW),
        (rect(45, 12, 47, 29), OLIVE),
        (rect(1, 3, 47, 13), SILVER),
        (rect(1, 3, 47, 4), WHITE),
        (rect(1, 11, 47, 13), GREY),
        (rect(33, 1, 47, 15), YELLOW),
        (rect(33, 13, 39, 15), OLIVE),
        (rect(45, 1, 47, 15), OLIVE),
        (rect(32, 1, 33, 15), BLACK),
        (rect(35, 5, 43, 10), BLACK),
        (rect(36, 6, 43, 10), VGA_BLUE),
        (rect(36, 6, 43, 7), CYAN),
    ] + [(rect(x, 5, x + 1, 10 if x % 8 == 4 else 8), BLACK) for x in range(4, 32, 4)]


def icon_256():
    """In groups from the back to the front: disc, beam with its jaw, slide."""
    cx, cy = 128, 164
    steel = [WHITE, STEEL[0], STEEL[1], STEEL[2], STEEL[3]]
    gold = [(255, 248, 180), (255, 230, 80), (248, 204, 32), (244, 192, 24), (188, 132, 8)]
    shades = [(8, 84, 104), (16, 132, 148), (64, 214, 224), (236, 255, 255)]

    def shine(x, y):
        turn = math.atan2(y - cy, x - cx) - math.atan2(-20, -7)
        return between(shades, abs(math.cos(turn)) ** 3)

    disc = [
        (ellipse(cx, cy, 80), (6, 60, 80)),
        (ellipse(cx, cy, 77), shine),
        (ellipse(cx, cy, 38), (12, 52, 104)),
        (ellipse(cx, cy, 34), blend(steel, cx - 26, cy - 30, cx + 26, cy + 30)),
        (ellipse(cx, cy, 16), STEEL[4]),
        (ellipse(cx, cy, 13), INK),
    ]
    beam = [
        (polygon((9, 60), (49, 60), (49, 206), (9, 138)), blend(steel, 9, 0, 49, 0)),
        (rect(9, 17, 247, 72), blend(steel, 0, 17, 0, 76)),
        (rect(9, 66, 247, 72), STEEL[4]),
    ] + [
        (rect(x, 24, x + 4, 54 if x % 48 == 24 else 42), INK) for x in range(24, 168, 24)
    ]
    slide = [
        (polygon((207, 60), (247, 60), (247, 138), (207, 206)), blend(gold, 207, 0, 247, 0)),
        (rect(174, 9, 247, 84), blend(gold, 174, 9, 247, 84)),
        (rect(186, 26, 236, 60), INK),
        (rect(189, 29, 233, 57), blend([BLUE[3], BLUE[2], BLUE[1]], 0, 29, 0, 57)),
        (rect(189, 29, 233, 36), BLUE[0]),
    ]
    return [disc, beam, slide]
