#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Joins what the benchmarks measured with their aims: one table in Markdown.

    bench/table.py AIMS FOLDER

FOLDER holds ROOM.json of each benchmark program and beside.txt of bench/beside.py. Where a program
measured several times, the best counts: what makes the others slower is the rest of the machine.
"""

import json
import os
import pathlib
import platform
import re
import sys

TO_MS = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}
STANDARD = {"name", "run_name", "run_type", "repetitions", "iterations", "threads", "label",
            "family_index", "per_family_instance_index", "repetition_index"}


def measured(folder):
    values = {}

    def keep(name, value):
        values[name] = min(value, values.get(name, value))

    for path in sorted(folder.glob("*.json")):
        for run in json.loads(path.read_text())["benchmarks"]:
            name = path.stem + "/" + re.sub(r"/(real_time|iterations:\d+|repeats:\d+)", "", run["run_name"])
            if run.get("error_occurred"):
                print(f"{name}: {run['error_message']}", file=sys.stderr)
                continue
            if run["run_type"] == "aggregate":
                continue
            keep(name, run["real_time"] * TO_MS[run["time_unit"]])
            for key, value in run.items():
                if key not in STANDARD and isinstance(value, (int, float)):
                    keep(f"{name}:{key}", value)
    for line in (folder / "beside.txt").read_text().splitlines():
        name, value = line.rsplit(" ", 1)
        keep(name, float(value))
    return values


def text(value):
    if value is None:
        return ""
    return f"{value:.0f}" if value >= 100 else f"{value:.3g}"


def row(line, values):
    """The line of the table, and whether the aim is met."""
    cells = [cell.strip().replace("\\|", "|") for cell in re.split(r"(?<!\\)\|", line)]
    what, aim, ours = cells[0], cells[1], values.get(cells[2])
    peer = values.get(cells[3]) if len(cells) > 3 else None
    base, _, more = aim.partition(" + ")
    most = peer if aim == "peer" else values.get(base, 0) + float(more) if more else float(aim)
    met = ours is not None and most is not None and ours <= most
    ratio = f"{ours / peer:.2f}" if ours and peer else ""
    shown = "not measured" if ours is None else text(ours)
    cells = [what.replace("|", "\\|"), "the peer's" if aim == "peer" else text(most),
             shown if met else f"**{shown}**", text(peer), ratio]
    return "| " + " | ".join(cells) + " |", met


def machine():
    model = re.search(r"model name\s*:\s*(.*)", pathlib.Path("/proc/cpuinfo").read_text())
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / 2**30
    system = platform.freedesktop_os_release()["PRETTY_NAME"]
    load = os.getloadavg()[2]
    return (f"{model.group(1) if model else platform.machine()}, {os.cpu_count()} cores, {memory:.0f} GB, "
            f"{system}; load of the last 15 minutes {load:.1f}.")


def main():
    aims, values = pathlib.Path(sys.argv[1]), measured(pathlib.Path(sys.argv[2]))
    print(machine(), "Milliseconds if nothing else is said; the best of several runs.")
    print("\n| what; beside it | aim | ours | peer | ratio |\n| --- | ---: | ---: | ---: | ---: |")
    missed = 0
    for line in aims.read_text().splitlines():
        if not line or line.startswith("#"):
            continue
        if "|" not in line:
            print(f"| **{line}** | | | | |")
            continue
        shown, met = row(line, values)
        missed += not met
        print(shown)
    print("\nEvery aim is met." if missed == 0 else f"\nAims missed: {missed}, in bold.")


if __name__ == "__main__":
    main()
