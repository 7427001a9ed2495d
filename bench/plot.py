"""Draws how time and memory of the works grow with the products of a suite."""

import statistics
import subprocess
import tempfile
from pathlib import Path

from common import ROOT, RUNS, number, print_table
from growth import WORKS, measure_work, suite_of

SIZES = 1, 10, 100, 1000, 10000, 32767
COLORS = "#1b9e77", "#7570b3", "#d95f02", "#e7298a", "#1f78b4"
PICTURE = ROOT / "docs/performance.svg"

SCRIPT = """
set terminal svg size 900,420 font "sans-serif,12" background "white"
set output "{picture}"
set multiplot layout 1,2
set logscale xy
set xlabel "products"
set xrange [1:50000]
set format x "%.0f"
set format y "%g"
set key bottom right
{panels}
"""


def measure():
    """Medians of nanoseconds and bytes, by work and size."""
    found = {}
    for products in SIZES:
        with suite_of(products) as suite:
            for work in WORKS:
                runs = [measure_work(work, suite) for _ in range(RUNS)]
                found[work, products] = [statistics.median(column) for column in zip(*runs)]
    return found


def panel(data, column, unit, lowest, highest):
    """A line a work, and dotted ones on which twice the products need twice as much."""
    lines = [f"{10.0**power}*x notitle lc rgb '#999999' dt 3" for power in range(-6, 3)]
    lines += [f"'{data}' using 1:{2 + 2 * n + column} title '{work}' with linespoints lc rgb '{COLORS[n]}' lw 2 pt 7 ps 0.4"
              for n, work in enumerate(WORKS)]
    return f"set ylabel '{unit}'\nset yrange [{lowest}:{highest}]\nplot " + ", ".join(lines)


def row(found, products):
    """Milliseconds and megabytes of each work, one behind the other."""
    return [value / 1e6 for work in WORKS for value in found[work, products]]


def draw(found):
    with tempfile.TemporaryDirectory() as folder:
        data = Path(folder, "data")
        data.write_text("".join(" ".join(map(str, [products, *row(found, products)])) + "\n" for products in SIZES))
        panels = []
        for column, unit in enumerate(("milliseconds", "megabytes")):
            values = [value for products in SIZES for value in row(found, products)[column::2]]
            panels.append(panel(data, column, unit, min(values) / 2, max(values) * 2))
        script = SCRIPT.format(picture=PICTURE, panels="\n".join(panels))
        subprocess.run(["gnuplot"], input=script, check=True, text=True)


def print_growth(found):
    lines = [("products", *(f"{work}, {unit}" for work in WORKS for unit in ("ms", "MB")))]
    lines += [(f"{products:,}", *map(number, row(found, products))) for products in SIZES]
    print_table(lines)


def make_plot():
    found = measure()
    print_growth(found)
    draw(found)
