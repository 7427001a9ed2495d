"""Counts the instructions of the works, which do not depend on the machine's load."""

import re
import subprocess
import sys
import tempfile
from pathlib import Path

from common import BUILD, ENVIRONMENT, ROOT, number, print_table, run

RECORD = ROOT / "bench/instructions.tsv"
ALLOWED_GROWTH = 1.05

# What is counted, and for what: as the difference of two commands, so that whatever both
# do, such as starting, falls out.
SMALL, LARGE = 100, 400
COUNTED = [
    ("read/lines/getline", "line"),
    ("read/tokens/trelin", "line"),
    ("read/tokens/inih", "line"),
    ("read/model/trelin", "product"),
    ("read/model/gkeyfile", "product"),
    ("read/model/boost", "product"),
    ("check/unchanged/trelin", "product"),
    ("trelin-check/trelin", "line"),
    ("trelin-status/trelin", "export"),
]
GUARDED = [name for name, _ in COUNTED if name.endswith("/trelin")]


def instructions(*command):
    with tempfile.NamedTemporaryFile() as out:
        tool = ["valgrind", "--tool=callgrind", f"--callgrind-out-file={out.name}", *map(str, command)]
        done = subprocess.run(tool, stderr=subprocess.PIPE, stdout=subprocess.DEVNULL, text=True, env=ENVIRONMENT)
    if done.returncode not in (0, 1):  # 1: trelin-check or trelin-status has found something
        sys.exit(done.stderr)
    return int(re.search(r"Collected : (\d+)", done.stderr)[1])


def difference(command):
    """Of a command on the large and on the small number of things."""
    return instructions(*command(LARGE)) - instructions(*command(SMALL))


class Lists:
    """Suites and exports of both sizes."""

    def __init__(self, folder):
        self.folder = Path(folder)
        for products in SMALL, LARGE:
            for made in "suite", "exports":
                (self.folder / f"{made}{products}").mkdir()
            run(BUILD / "bench_reading", "--make", products, self.path("list", products, ".cfg"), self.path("list", products, ".ini"))
            run(BUILD / "bench_growth", "make", products, self.path("suite", products), env=ENVIRONMENT)
            run(BUILD / "bench_exports", "--make", products, self.path("exports", products))

    def path(self, name, products, ending=""):
        return self.folder / f"{name}{products}{ending}"

    def lines(self, ending):
        few, many = (self.path("list", n, ending).read_bytes().count(b"\n") for n in (SMALL, LARGE))
        return many - few


def count(name, unit, lists):
    if name.startswith("check/"):
        return difference(lambda n: (BUILD / "bench_checking", "--once", SMALL, n // SMALL)) / (LARGE - SMALL)
    if name.startswith("trelin-check/"):
        return difference(lambda n: (BUILD / "trelin-check", lists.path("suite", n))) / lists.lines(".cfg")
    if name.startswith("trelin-status/"):
        records = lambda n: (lists.path("exports", n), "--records", lists.path("exports", n))
        return difference(lambda n: (BUILD / "trelin-status", *records(n))) / (LARGE - SMALL)
    ending = ".ini" if name.rpartition("/")[2] in ("inih", "gkeyfile", "boost") else ".cfg"
    counted = difference(lambda n: (BUILD / "bench_reading", "--once", name, lists.path("list", n, ending)))
    return counted / (lists.lines(ending) if unit == "line" else LARGE - SMALL)


def count_instructions():
    """By the name of what is counted. The C library chooses its functions by the
    processor; for a count that holds on every machine it is to take the plain ones."""
    ENVIRONMENT["GLIBC_TUNABLES"] = "glibc.cpu.hwcaps=-AVX2,-AVX_Fast_Unaligned_Load,-ERMS,-BMI2"
    with tempfile.TemporaryDirectory() as folder:
        lists = Lists(folder)
        return {name: count(name, unit, lists) for name, unit in COUNTED}


def print_instructions(counts, recorded):
    lines = [("instructions", "for each", "counted", "recorded", "grown")]
    for name, unit in COUNTED:
        old = recorded.get(name)
        growth = f"{100 * (counts[name] / old - 1):+.1f}%" if old else ""
        lines.append((name, unit, number(counts[name]), number(old) if old else "", growth))
    print_table(lines)


def read_record():
    return {name: float(count) for name, count in (line.split("\t") for line in RECORD.read_text().splitlines())} if RECORD.exists() else {}


def check_instructions(record):
    counts, recorded = count_instructions(), read_record()
    print_instructions(counts, recorded)
    if record:
        RECORD.write_text("".join(f"{name}\t{counts[name]:.0f}\n" for name in GUARDED))
        return 0
    grown = [name for name in GUARDED if name not in recorded or counts[name] > ALLOWED_GROWTH * recorded[name]]
    for name in grown:
        print(f"{name} needs more than 5% more instructions than bench/instructions.tsv says")
    return 1 if grown else 0
