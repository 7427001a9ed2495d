"""What all parts of the benchmark use."""

import os
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
BUILD = ROOT / "build/host"
WINDOWS_BUILD = ROOT / "build/bench-windows"
RUNS = 5
ENVIRONMENT = {**os.environ, "QT_QPA_PLATFORM": "offscreen"}


def run(*command, **options):
    return subprocess.run([str(part) for part in command], check=True, cwd=ROOT, **options)


def output(*command, **options):
    return run(*command, stdout=subprocess.PIPE, text=True, **options).stdout


def build(folder, targets, *arguments):
    run("cmake", *arguments, "-B", folder, stdout=sys.stderr)
    run("cmake", "--build", folder, "--target", *targets.split(), stdout=sys.stderr)


def install(packages):
    run("cmake/install_packages", *packages.split(), stdout=sys.stderr)


def number(value):
    return f"{value:,.0f}" if value >= 100 else f"{value:.3g}"


def print_table(lines):
    lines = list(lines)
    widths = [max(map(len, column)) for column in zip(*lines)]
    for i, line in enumerate(lines):
        print("| " + " | ".join(cell.ljust(width) for cell, width in zip(line, widths)) + " |")
        if i == 0:
            print("|" + "|".join("-" * (width + 2) for width in widths) + "|")
