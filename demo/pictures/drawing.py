"""Pictures as lists of shapes, painted one over the other, with the light from
the top left.

A unit is a pixel. Each pixel takes the colour that covers most of it, so edges
stay hard, as a mask needs them, and a dark outline is laid around the whole.
Smooth pictures are for where there is no mask.
"""

import math
from collections import Counter

SIZE = 32
SAMPLES = 6  # a pixel and direction
SMOOTH_SAMPLES = 4
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


def opposite(shape, cx, cy):
    """The shape and its reflection in a point."""
    return lambda x, y: shape(x, y) or shape(2 * cx - x, 2 * cy - y)


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


def blend(colors, x0, y0, x1, y1):
    """The colours flowing into each other from one point to the other."""
    length = (x1 - x0) ** 2 + (y1 - y0) ** 2

    def paint(x, y):
        t = ((x - x0) * (x1 - x0) + (y - y0) * (y1 - y0)) / length
        return between(colors, t)

    return paint


def between(colors, t):
    """The colour at t, from 0 (the first one) to 1 (the last one)."""
    t = max(0, min(1, t)) * (len(colors) - 1)
    i = min(int(t), len(colors) - 2)
    return tuple(a + (b - a) * (t - i) for a, b in zip(colors[i], colors[i + 1]))


# From shapes to pixels.


def pixel_samples(shapes, samples):
    """A function that gives the colours of all samples in a pixel, None for none."""
    shapes = [(s, p if callable(p) else lambda x, y, p=p: p) for s, p in shapes]
    steps = [(i + 0.5) / samples for i in range(samples)]

    def sample(x, y):
        for shape, paint in reversed(shapes):
            if shape(x, y):
                return paint(x, y)
        return None

    return lambda column, row: [sample(column + dx, row + dy) for dy in steps for dx in steps]


def render(shapes, outline=OUTLINE, size=SIZE):
    """The pixels, row by row: a colour, or None where nothing is drawn."""
    samples = pixel_samples(shapes, SAMPLES)

    def pixel(column, row):
        found = Counter(samples(column, row))
        empty = found.pop(None, 0)
        return None if empty * 2 > SAMPLES**2 else found.most_common(1)[0][0]

    pixels = [[pixel(c, r) for c in range(size)] for r in range(size)]

    def beside(c, r):
        around = [(c - 1, r), (c + 1, r), (c, r - 1), (c, r + 1)]
        return any(0 <= x < size and 0 <= y < size and pixels[y][x] for x, y in around)

    return [
        [pixels[r][c] or (outline if beside(c, r) else None) for c in range(size)]
        for r in range(size)
    ]


def render_smooth(groups, size, line):
    """The pixels, row by row: red, green, blue and how much is drawn, 0 to 255.

    Each group of shapes has an outline that is line pixels wide."""
    rows = [[(0, 0, 0, 0)] * size for _ in range(size)]
    reach = range(-math.ceil(line), math.ceil(line) + 1)
    pen = [(dx, dy, min(1, line + 0.5 - math.hypot(dx, dy))) for dx in reach for dy in reach]
    for shapes in groups:
        samples = pixel_samples(shapes, SMOOTH_SAMPLES)
        inside, outline = {}, {}
        for r, c in ((r, c) for r in range(size) for c in range(size)):
            if found := [color for color in samples(c, r) if color]:
                share = len(found) / SMOOTH_SAMPLES**2
                inside[r, c] = [sum(parts) / len(found) for parts in zip(*found)], share
        for r, c in inside:
            for dx, dy, ink in pen if not is_surrounded(inside, r, c) else ():
                at = r + dy, c + dx
                outline[at] = OUTLINE, max(outline.get(at, (0, 0))[1], ink * inside[r, c][1])
        for (r, c), (color, share) in [*outline.items(), *inside.items()]:
            rows[r][c] = laid_over(rows[r][c], color, share)
    return [[rounded(pixel) for pixel in row] for row in rows]


def is_surrounded(inside, r, c):
    around = [(r - 1, c), (r + 1, c), (r, c - 1), (r, c + 1)]
    return all(at in inside and inside[at][1] == 1 for at in around)


def laid_over(pixel, color, share):
    *below, drawn = pixel
    drawn = drawn / 255 * (1 - share)
    total = share + drawn
    mixed = ((c * share + b * drawn) / total if total else 0 for c, b in zip(color, below))
    return (*mixed, 255 * total)


def rounded(pixel):
    """Fewer colours than the eye can tell apart keep the file small."""
    *color, drawn = pixel
    return (*(min(255, round(part / 8) * 8) for part in color), round(drawn))
