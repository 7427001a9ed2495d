"""What is measured, beside what, and what is to be reached."""

import re

from common import number

# The work; the unit it is shown in; what is measured; beside what; how the two may stand
# to each other. The last is "x 1.3" for at most 1.3 times as much, "/ 3" for at least 3
# times as fast, "x 0.9-1.1" for alike, "+ 2" for at most 2 of the unit more, or what is
# measured itself may be at most that: "<= 3".
TABLE = [
    ("start to the agreement, Wine", "ms", "wine/first_window/trelin", "NSIS, classic", "wine/first_window/nsis_classic", "x 1"),
    ("", "ms", "wine/first_window/trelin", "NSIS, modern", "wine/first_window/nsis_modern", "x 1"),
    ("", "ms", "wine/first_window/trelin", "a window with the text", "wine/first_window/peer_text", None),
    ("start to the menu, Wine", "ms", "wine/menu/trelin", "a window with the text", "wine/first_window/peer_text", "x 1.2"),
    ("start to the agreement, Linux", "ms", "start/first_window/trelin", "the same in Qt", "start/first_window/peer_text", "x 1"),
    ("start to the menu, Linux", "ms", "start/menu/trelin", "the same in Qt", "start/first_window/peer_text", "x 1.15"),
    ("memory of the idle menu, Wine", "MB", "wine/memory/menu", "NSIS, classic", "wine/memory/nsis_classic", "+ 2"),
    ("", "MB", "wine/memory/menu", "NSIS, modern", "wine/memory/nsis_modern", "+ 2"),
    ("memory of the idle menu, Linux", "MB", "start/memory/menu", "a Qt window with a text", "start/memory/peer_text", "+ 2"),
    ("calls on the suite's files, Wine", "", "wine/calls/all", "these files", "wine/calls/files", None),
    ("  most openings of a file", "", "wine/calls/opened", "", None, "<= 1"),
    ("  most looks for a check file", "", "wine/calls/asked", "", None, "<= 1"),
    ("  most lists of a folder", "", "wine/calls/listed", "", None, "<= 1"),
    ("calls on the suite's files, Linux", "", "start/calls/all", "these files", "start/calls/files", None),
    ("  most openings of a file", "", "start/calls/opened", "", None, "<= 1"),
    ("  most looks for a check file", "", "start/calls/asked", "", None, "<= 1"),
    ("  most lists of a folder", "", "start/calls/listed", "", None, "<= 1"),
    ("the start, 20 ms a call more, Wine", "ms", "wine/slow/menu", "these 20 ms", "wine/slow/calls", "x 1.2"),
    ("  what it adds", "ms", "wine/slow/added", "these 20 ms", "wine/slow/calls", None),
    ("the start, 20 ms a call more, Linux", "ms", "start/slow/menu", "these 20 ms", "start/slow/calls", "x 1.2"),
    ("  what it adds", "ms", "start/slow/added", "these 20 ms", "start/slow/calls", None),
    ("all tokens of 32,767 products", "ms", "read/tokens/trelin", "getline", "read/lines/getline", "x 1.7"),
    ("", "ms", "read/tokens/trelin", "inih", "read/tokens/inih", "/ 3"),
    ("the list into the model", "ms", "read/model/trelin", "getline", "read/lines/getline", "x 3"),
    ("  in large pages", "ms", "large/read/model/trelin", "getline", "read/lines/getline", None),
    ("", "ms", "read/model/trelin", "GKeyFile", "read/model/gkeyfile", "/ 3"),
    ("", "ms", "read/model/trelin", "Boost", "read/model/boost", "/ 7"),
    ("memory of the model", "MB", "memory/model/trelin", "the file", "memory/model/file", "x 3"),
    ("", "MB", "memory/model/trelin", "its values", "memory/model/values", None),
    ("a check, 1,000 products", "us", "check/unchanged/trelin/1000", "its system calls", "check/system_calls/bare/1000", "x 1.5"),
    ("a check, 32,767 products", "us", "check/unchanged/trelin/32767", "its system calls", "check/system_calls/bare/32767", "x 1.5"),
    ("", "us", "check/unchanged/trelin/32767", "1,000", "check/unchanged/trelin/1000", "x 1.5"),
    ("  system calls", "", "check/calls", "", None, "<= 3"),
    ("all checks after a change", "ms", "check/changed/trelin/32767", "unchanged and a parse", "check/expected/32767", None),
    ("  parses of the file", "", "check/changed/parses/32767", "", None, "<= 1"),
    ("a menu of 5,000 pictures", "ms", "menu/open_pictures/trelin", "decoding them", "menu/decode_pictures/qimage", "x 1.3"),
    ("  without reading and checking", "ms", "menu/pictures_alone/trelin", "decoding them", "menu/decode_pictures/qimage", "x 1.3"),
    ("trelin-check, 32,767 products", "ms", "growth/trelin-check/32767", "the menu of the same", "growth/menu/32767", None),
    ("", "ms", "growth/trelin-check/32767", "ten times 3,277", "growth/expected/32767", "x 1.2"),
    ("", "ms", "growth/trelin-check/32767", "", None, "<= 1000"),
    ("trelin-status, 10,000 exports", "ms", "status/exports/trelin", "GKeyFile", "status/exports/gkeyfile", "x 1"),
    ("", "ms", "status/exports/trelin", "", None, "<= 5000"),
    ("a scroll step, 32,767 products", "ms", "menu/scroll/trelin/32767", "7 products", "menu/scroll/trelin/7", "x 0.9-1.1"),
    ("a selection, 32,767 products", "ms", "menu/select/trelin/32767", "7 products", "menu/select/trelin/7", "x 0.9-1.1"),
    ("a tick, log unchanged", "us", "menu/tick/trelin", "", None, "<= 200"),
    ("processor, menu idle, 5 s", "ms", "idle/no_poll/ms", "", None, None),
    ("  polling: a tick", "ms", "idle/tick/ms", "", None, "<= 0.2"),
    ("  polling: between ticks", "ms", "idle/between/ms", "", None, "<= 0.1"),
    ("trelin.exe, x64", "KB", "size/trelin", "NSIS, classic", "size/nsis_classic", "<= 260"),
    ("", "KB", "size/trelin", "NSIS, modern", "size/nsis_modern", None),
]
SCALE = {"ms": 1e-6, "us": 1e-3}  # of nanoseconds


def in_unit(name, value, unit):
    if re.match(r"(large/)?(read|check|status|menu|growth)/", name) and unit in SCALE:
        return value * SCALE[unit]
    return value / {"MB": 1e6, "KB": 1024}.get(unit, 1)


def verdict(limit, shown, other, ratio):
    """By the figures as they are shown."""
    kind, bound = limit.split()
    if kind == "<=":
        met = shown <= float(bound)
    elif kind == "+":
        met = shown <= other + float(bound)
    elif kind == "/":
        met = round(1 / ratio, 2) >= float(bound)
    elif "-" in bound:
        low, high = map(float, bound.split("-"))
        met = low <= round(ratio, 2) <= high
    else:
        met = round(ratio, 2) <= float(bound)
    return "yes" if met else "NO"


def line_of(results, work, unit, name, beside, peer, limit):
    value, other = results.median(name), peer and results.median(peer)
    if value is None or (peer and other is None):
        return work, "not measured", beside, "", "", limit or "", ""
    shown, other = in_unit(name, value, unit), peer and in_unit(peer, other, unit)
    ratio = peer and results.ratio(name, peer)
    return (
        work,
        f"{number(shown)} {unit}".strip(),
        beside,
        f"{number(other)} {unit}".strip() if peer else "",
        "" if not peer else f"1/{1 / ratio:.2f}" if limit and limit.startswith("/") else f"{ratio:.2f}",
        limit or "",
        verdict(limit, shown, other, ratio) if limit else "",
    )


def table_lines(results):
    yield "work", "Trelin", "beside", "", "ratio", "to reach", "met"
    for row in TABLE:
        yield line_of(results, *row)


def size_lines(results):
    yield "part", "KB"
    parts = {name.removeprefix("size/part/"): results.median(name) for name in results if name.startswith("size/part/")}
    for name, size in sorted(parts.items(), key=lambda part: -part[1]):
        yield name, number(size / 1024)
