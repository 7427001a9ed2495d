"""Takes the figures: a name and the runs of each."""

import json
import os
import re
import statistics
import tempfile
from collections import defaultdict

from common import BUILD, ENVIRONMENT, RUNS, WINDOWS_BUILD, output, run
from growth import measure_work, suite_of
from instructions import COUNTED

READING = [name for name, _ in COUNTED if name.startswith("read/")]

# Short ones, since the speed of a machine that others use, too, changes within a second.
ROUNDS = 5 * RUNS
# Of some benchmarks a round is several works.
WORKS_IN_A_ROUND = [(r"^check/(unchanged|system_calls)/.*/(\d+)$", None), (r"^menu/(scroll|select)/", 2)]
COUNTED_PRODUCTS, COUNTED_ROUNDS = 500, 10


def works_in(name):
    for pattern, works in WORKS_IN_A_ROUND:
        if found := re.search(pattern, name):
            return works or int(found[2])
    return 1


def each_json(text):
    """The values in a text that has several, one behind the other."""
    decoder = json.JSONDecoder()
    while text := text.lstrip():
        value, end = decoder.raw_decode(text)
        text = text[end:]
        yield value


def stay_on_one_processor():
    """Each may have another speed."""
    os.sched_setaffinity(0, {min(os.sched_getaffinity(0))})


class Results(defaultdict):
    """The runs of each thing measured, by its name. What is compared takes turns, so that
    the runs of one number stand side by side."""

    def __init__(self):
        super().__init__(list)

    def add_lines(self, text):
        for name, number in (line.split("\t") for line in text.splitlines()):
            self[name].append(float(number))

    def add_benchmark(self, program, chosen, rounds=ROUNDS, prefix="", variables={}):
        command = [BUILD / program, f"--rounds={rounds}", "--benchmark_min_time=0.06", f"--benchmark_filter={chosen}"]
        reports = output(*command, env={**ENVIRONMENT, **variables}, preexec_fn=stay_on_one_processor)
        for one in (one for report in each_json(reports) for one in report["benchmarks"]):
            assert one["time_unit"] == "ns" and "error_occurred" not in one, one
            self[prefix + one["name"]].append(one["real_time"] / works_in(one["name"]))
            if "parses" in one:
                self[one["name"].replace("trelin", "parses")].append(one["parses"])

    def median(self, name):
        return statistics.median(self[name]) if self.get(name) else None

    def ratio(self, name, peer):
        """The median of the runs' ratios, or else the ratio of the medians."""
        runs, others = self[name], self[peer]
        if len(runs) != len(others):
            return self.median(name) / self.median(peer)
        return statistics.median(one / other for one, other in zip(runs, others))


# Each work in a process of its own: what the others leave behind in a heap makes it slower.
def measure_reading(results):
    # What a kernel gives to every program that is set to do so.
    large = {"GLIBC_TUNABLES": "glibc.malloc.hugetlb=1"}
    for _ in range(ROUNDS):
        for work in READING:
            results.add_benchmark("bench_reading", f"^{work}$", rounds=1)
        results.add_benchmark("bench_reading", "model/trelin", rounds=1, prefix="large/", variables=large)
        results.add_lines(output(BUILD / "bench_reading", "--memory", env=ENVIRONMENT))


def system_calls(rounds):
    """Of a process that checks so often."""
    with tempfile.NamedTemporaryFile("r") as log:
        run("strace", "-f", "-o", log.name, BUILD / "bench_checking", "--once", COUNTED_PRODUCTS, rounds, env=ENVIRONMENT)
        return len(log.read().splitlines())


def measure_checking(results):
    for products in 1000, 32767:
        results.add_benchmark("bench_checking", f"check/(unchanged|system_calls)/.*/{products}$")
    results.add_benchmark("bench_checking", "check/(changed|parse)/.*/32767$")
    unchanged, parse = (results.median(f"check/{what}/trelin/32767") for what in ("unchanged", "parse"))
    results["check/expected/32767"].append(unchanged * 32767 + parse)
    more = system_calls(1 + COUNTED_ROUNDS) - system_calls(1)
    results["check/calls"].append(more / COUNTED_ROUNDS / COUNTED_PRODUCTS)


def measure_menu(results):
    results.add_benchmark("bench_menu", "pictures|load_list")
    opened, loaded = (results[f"menu/{what}/trelin"] for what in ("open_pictures", "load_list"))
    results["menu/pictures_alone/trelin"] = [all_of_it - listing for all_of_it, listing in zip(opened, loaded)]
    results.add_benchmark("bench_menu", "scroll|select|tick")


def measure_tools(results):
    results.add_benchmark("bench_exports", ".")
    for products in 3277, 32767:
        with suite_of(products) as suite:
            for _ in range(RUNS):
                for work in "trelin-check", "menu":
                    results[f"growth/{work}/{products}"].append(measure_work(work, suite)[0])
    results["growth/expected/32767"].append(10 * results.median("growth/trelin-check/3277"))


def measure_starts(results, system, build, *before):
    # The records of the suite are in a Windows installation of its own.
    variables = {**os.environ, "WINE_NAME": "bench-wine"}
    for script in "starts", "memory", "file_calls":
        results.add_lines(output(*before, f"bench/start/{script}", system, build, RUNS, env=variables))


def measure_host(results):
    for measure in measure_reading, measure_checking, measure_menu, measure_tools:
        measure(results)
    measure_starts(results, "linux", BUILD)
    results.add_lines(output("bench/start/idle", BUILD, RUNS))


def measure_windows(results):
    measure_starts(results, "wine", WINDOWS_BUILD, "tests/windows/in_wine")
    results.add_lines(output("bench/start/size", WINDOWS_BUILD))
