"""The two systems that starts are measured on: each with a display, the demonstration
suite in its first state, and programs to compare with."""

import contextlib
import os
import subprocess
import sys
import tempfile
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


@dataclass
class System:
    name: str  # that its figures begin with
    watch: list  # the command that watches a start
    suite: Path
    trelin: Path
    peers: dict  # the programs with one window, by their names


@contextlib.contextmanager
def own_display():
    # The server is not to start anew between two programs.
    command = ["Xvfb", "-displayfd", "1", "-screen", "0", "1024x768x24", "-nolisten", "tcp", "-noreset"]
    server = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    runtime = tempfile.TemporaryDirectory()  # Qt complains about one that others may read
    try:
        os.environ["DISPLAY"] = ":" + server.stdout.readline().strip()
        os.environ["XDG_RUNTIME_DIR"] = runtime.name
        for name in "QT_QPA_PLATFORM", "WAYLAND_DISPLAY":
            os.environ.pop(name, None)
        yield
    finally:
        server.terminate()
        server.wait()
        runtime.cleanup()


def lay_out(build):
    """The demonstration suite with its seven products, and its registry file."""
    suite, registry = build / "bench-suite", build / "bench-suite.reg"
    subprocess.run([ROOT / "demo/lay_out", build, suite, registry, "--fresh"], check=True, stdout=sys.stderr)
    os.environ["TRELIN_REGISTRY"] = str(registry)
    return suite


def lay_out_windows(build):
    suite, records = build / "bench-suite", build / "bench-suite.reg"
    subprocess.run([ROOT / "demo/lay_out", build, suite, "--windows"], check=True, stdout=sys.stderr)
    folder = f"Z:{suite}".replace("/", r"\\")
    records.write_text((ROOT / "demo/records.reg").read_text().replace("@SUITE@", folder))
    subprocess.run(["wine", "regedit", "/S", records], check=True)
    return suite


@contextlib.contextmanager
def linux(build):
    suite = lay_out(build)
    with own_display():
        yield System("start", [build / "watch_x11"], suite, suite / "trelin", {"peer_text": build / "start_peer_text"})


@contextlib.contextmanager
def wine(build):
    """The display and Wine itself are those of tests/windows/in_wine."""
    suite = lay_out_windows(build)
    peers = {
        "peer_text": build / "start_peer_text.exe",
        "nsis_classic": build / "nsis_classic.exe",
        "nsis_modern": build / "nsis_modern.exe",
    }
    yield System("wine", ["wine", build / "watch_windows.exe"], suite, suite / "trelin.exe", peers)


def system_of(arguments, usage):
    """The system and the number of runs that a command line of these scripts asks for."""
    if len(arguments) not in (3, 4) or arguments[1] not in ("linux", "wine"):
        sys.exit(usage)
    build = Path(arguments[2]).resolve()
    return {"linux": linux, "wine": wine}[arguments[1]](build), int(arguments[3]) if len(arguments) > 3 else 5


def times(system, windows, program, before=()):
    """Milliseconds until each window is shown; before is what the watching is started by."""
    command = [*before, *system.watch, str(windows), program]
    answer = subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout
    return [float(line) for line in answer.split()]
