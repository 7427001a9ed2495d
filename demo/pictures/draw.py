#!/usr/bin/env python3
"""Draws the pictures of the demonstration suite and the program's icon.

    demo/pictures/draw.py          writes the pictures next to this script
                                   and app/trelin.ico, and the same
                                   icons into packaging/icons

The pictures are committed; the build does not run this. The output is the
same bytes every time.
"""

from pathlib import Path

from drawing import *
from formats import bmp, gif, ico, icon_image, png_image
from program_icon import BLACK, VGA, icon_16, icon_32, icon_48, icon_256


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


def smooth_icon():
    return render_smooth(icon_256(), 256, 6)


def opaque(pixels):
    """With an opacity, as PNG has it."""
    return [[(0, 0, 0, 0) if c is None else (*c, 255) for c in row] for row in pixels]


def main():
    here = Path(__file__).resolve().parent
    small_icons = {
        size: render(shapes, BLACK, size)
        for size, shapes in {16: icon_16(), 32: icon_32(), 48: icon_48()}.items()
    }
    for name, picture in {
        "runtime.bmp": bmp(render(runtime())),
        "sensors.gif": gif(render(sensors())),
        "inspect.ico": ico(icon_image(render(inspect()))),
        "gear.bmp": bmp(render(gear_picture())),
        "optics.ico": ico(icon_image(render(optics()))),
        "reports.gif": gif(render(reports())),
        "../../app/trelin.ico": ico(
            *(icon_image(small_icons[size], VGA, 4) for size in (32, 16, 48)),
            png_image(smooth_icon()),
        ),
    }.items():
        (here / name).write_bytes(picture)
    icons = {size: opaque(pixels) for size, pixels in small_icons.items()} | {256: smooth_icon()}
    for size, pixels in icons.items():
        (here / f"../../packaging/icons/{size}.png").write_bytes(png_image(pixels)[2])


if __name__ == "__main__":
    main()
