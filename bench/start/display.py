"""A display and a suite of the benchmark's own."""

import contextlib
import os
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


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
