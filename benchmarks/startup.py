#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures start-up to the first painted window and writes it as JSON.

usage: startup.py FOLDER: the folder of the programs startup_...
"""
import json
import subprocess
import sys
import tempfile
import time

REPEATS = 11
COLD_REPEATS = 3


def start(program, *arguments):
    """Starts the program; returns the seconds until its window was painted."""
    command = [program, str(time.monotonic_ns()), *arguments]
    output = subprocess.run(command, capture_output=True, check=True, text=True)
    return float(output.stdout)


def drop_caches():
    """Makes the kernel forget what it has read from disk; needs root."""
    subprocess.run(["sync"], check=True)
    with open("/proc/sys/vm/drop_caches", "w", encoding="ascii") as control:
        control.write("3\n")


def measure(programs):
    """The times of all programs, started in turn."""
    times = {f"{name}/{state}": [] for state in ("warm", "cold") for name in programs}
    for command in programs.values():
        start(*command)
    for _ in range(REPEATS):
        for name, command in programs.items():
            times[f"{name}/warm"].append(start(*command))
    try:
        for _ in range(COLD_REPEATS):
            for name, command in programs.items():
                drop_caches()
                times[f"{name}/cold"].append(start(*command))
    except OSError:
        print("start-up is measured warm only: emptying the disk cache needs root", file=sys.stderr)
    return times


def main(folder):
    with tempfile.TemporaryDirectory() as temporary:
        charts = f"{temporary}/charts"
        subprocess.run([f"{folder}/startup_charts", charts], check=True)
        json.dump(measure({"lab": [f"{folder}/startup_lab"],
                           "empty": [f"{folder}/startup_empty"],
                           "empty raster": [f"{folder}/startup_empty", "raster"],
                           "plain": [f"{folder}/startup_plain", charts]}), sys.stdout)


main(sys.argv[1])
