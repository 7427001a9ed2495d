"""What works need for suites of some sizes, each run in a process of its own."""

import contextlib
import os
import subprocess
import tempfile
import time
from pathlib import Path

from common import BUILD, ENVIRONMENT, run

WORKS = "load", "check", "menu", "trelin-check", "trelin-status"


@contextlib.contextmanager
def suite_of(products):
    """With installers, pictures, check files and records."""
    with tempfile.TemporaryDirectory() as folder:
        run(BUILD / "bench_growth", "make", products, folder, env=ENVIRONMENT)
        yield Path(folder)


def whole_process(program, suite):
    start = time.perf_counter_ns()
    variables = {**ENVIRONMENT, "TRELIN_REGISTRY": str(suite / "registry.reg")}
    process = subprocess.Popen([BUILD / program, suite], stdout=subprocess.DEVNULL, env=variables)
    _, status, used = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    assert process.returncode in (0, 1), program  # 1: something of the suite is not installed
    return time.perf_counter_ns() - start, 1024 * used.ru_maxrss


def measure_work(work, suite):
    """Nanoseconds and bytes. Of a tool they are those of its whole process; of the
    launcher's works, those that they add to a process that has started."""
    if work.startswith("trelin-"):
        return whole_process(work, suite)
    answer = run(BUILD / "bench_growth", work, suite, stdout=subprocess.PIPE, text=True, env=ENVIRONMENT).stdout
    return tuple(map(int, answer.split()))
