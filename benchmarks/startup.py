#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures start-up to the first painted window and writes it as JSON.

usage: startup.py FOLDER: the folder of startup_lab and startup_empty
"""
import json
import subprocess
import sys
import time

REPEATS = 11
COLD_REPEATS = 3


def start(program):
    """Starts the program; returns the seconds until its window was painted."""
    start_time = str(time.monotonic_ns())
    output = subprocess.run([program, start_time], capture_output=True, check=True, text=True)
    return float(output.stdout)


def drop_caches():
    """Makes the kernel forget what it has read from disk; needs root."""
    subprocess.run(["sync"], check=True)
    with open("/proc/sys/vm/drop_caches", "w", encoding="ascii") as control:
        control.write("3\n")


def main(folder):
    programs = {name: f"{folder}/startup_{name}" for name in ("lab", "empty")}
    times = {f"{name}/{state}": [] for state in ("warm", "cold") for name in programs}
    for program in programs.values():
        start(program)
    for _ in range(REPEATS):
        for name, program in programs.items():
            times[f"{name}/warm"].append(start(program))
    try:
        for _ in range(COLD_REPEATS):
            for name, program in programs.items():
                drop_caches()
                times[f"{name}/cold"].append(start(program))
    except PermissionError:
        print("start-up is measured warm only: emptying the disk cache needs root", file=sys.stderr)
    json.dump(times, sys.stdout)


main(sys.argv[1])
