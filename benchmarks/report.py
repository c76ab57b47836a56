#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Prints the tables of docs/performance.md from the results of a run of ./bench.

usage: report.py FOLDER: the folder of the results
"""
import json
import statistics
import sys

MICRO = 1e6
MILLI = 1e3


def medians(folder, name):
    """The medians of a Google Benchmark file by the benchmark's name; times in seconds."""
    seconds = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}
    with open(f"{folder}/{name}.json", encoding="utf-8") as file:
        entries = json.load(file)["benchmarks"]
    result = {}
    for entry in entries:
        if entry.get("aggregate_name") == "median":
            unit = seconds[entry["time_unit"]]
            key = entry["run_name"].split("/iterations:")[0]
            times = {"cpu": entry["cpu_time"] * unit, "real": entry["real_time"] * unit}
            result[key] = entry | times
    return result


def table(title, heading, rows):
    """Prints a Markdown table; the first column is text, the others are figures."""
    print(f"\n## {title}\n")
    print("| " + " | ".join(str(cell) for cell in heading) + " |")
    print("|---" + "|--:" * (len(heading) - 1) + "|")
    for row in rows:
        print("| " + " | ".join(str(cell) for cell in row) + " |")


def figure(value, digits=2):
    return f"{value:.{digits}f}"


def transform(folder):
    results = medians(folder, "fft")
    lengths = (1024, 8192, 32768, 262144)
    rows = []

    def add(label, name, reference=None):
        if f"{name}/32768" not in results:
            return
        times = [results[f"{name}/{n}"]["cpu"] for n in lengths]
        ratio = ""
        if reference and f"{reference}/32768" in results:
            ratio = figure(times[2] / results[f"{reference}/32768"]["cpu"])
        rows.append([label, *(figure(time * MICRO, 1) for time in times), ratio])

    add("FFTReal: build + transform", "FFTReal/build+transform", "FFTW/estimate+execute")
    add("FFTW: plan (estimate) + execute", "FFTW/estimate+execute")
    add("FFTW: plan (remembered) + execute", "FFTW/remembered+execute")
    add("Kiss FFT: build + transform", "Kiss FFT/build+execute")
    add("FFTReal: transform", "FFTReal/transform", "FFTW/execute measured r2c")
    add("FFTReal: transform, no AVX2", "FFTReal/transform plain", "FFTW/execute measured r2c")
    add("FFTW: execute, measured, half-complex", "FFTW/execute measured")
    add("FFTW: execute, measured, complex", "FFTW/execute measured r2c")
    add("Kiss FFT: transform", "Kiss FFT/execute")
    table("Transform, µs", ["", *lengths, "ratio at 32768"], rows)

    rows = []
    for label, name in (("FFTReal", "FFTReal/transform"),
                        ("FFTW, half-complex", "FFTW/execute measured"),
                        ("Kiss FFT", "Kiss FFT/execute")):
        if f"{name}/32768" in results:
            errors = [results[f"{name}/{n}"]["rms"] for n in lengths]
            rows.append([label, *(figure(error * 1e16) for error in errors)])
    if len(rows) > 1 and rows[1][0].startswith("FFTW"):
        ratios = (float(ours) / float(theirs) for ours, theirs in zip(rows[0][1:], rows[1][1:]))
        rows.append(["FFTReal / FFTW", *map(figure, ratios)])
    table("RMS error of the transform, 10⁻¹⁶ of the spectrum's RMS", ["", *lengths], rows)


def signal(folder):
    results = medians(folder, "signal")
    rows = []
    for label, name, bare, sounds in (
            ("`genWav`, noise trial", "genWav/trial/noise", "bare loop/noise", 1),
            ("`genWav`, sinusoid trial", "genWav/trial/sinusoid", "bare loop/sinusoid", 1),
            ("`genWav`, noise, View", "genWav/View/noise", "bare loop/noise", 2),
            ("`genWav`, sinusoids, View", "genWav/View/sinusoid", "bare loop/sinusoid", 2),
            ("`genFFT`", "genFFT", "genFFT/parts", 1)):
        time, least = results[name]["cpu"], results[bare]["cpu"] * sounds
        times = (figure(time * MICRO, 0), figure(least * MICRO, 0))
        rows.append([label, *times, figure(time / least)])
    table("Sounds and spectra, µs", ["", "time", "its library calls alone", "ratio"], rows)


def turnaround(folder):
    results = medians(folder, "turnaround")

    def rows(prefix, shown):
        result = []
        for name, entry in results.items():
            if name.startswith(prefix):
                times = [entry["computing"], entry["armed"]]
                times += [entry["real"], entry["plain"]] if shown else []
                ratio = [figure(entry["real"] / entry["plain"])] if shown else []
                result.append([name[len(prefix):], *(figure(t * MILLI) for t in times), *ratio])
        return result

    heading = ["computing", "until the timer runs", "until the event loop is free",
               "plain charts", "ratio"]
    table("From an answer to the next trial, ms", ["", *heading], rows("turnaround/", True))
    table("Growth with the duration (ms), ms", ["duration", *heading[:2]],
          rows("growth/duration/", False))
    table("Growth with the sampling rate (Hz), ms", ["rate", *heading[:2]],
          rows("growth/rate/", False))
    table("Growth with the trial, ms", ["trial", *heading], rows("growth/trial/", True))


def listeners(folder):
    results = medians(folder, "listeners")
    rows = [[name.split("/")[2], figure(entry["real"] * MILLI, 3)]
            for name, entry in results.items()]
    table("From the signal to the current listener's light, ms",
          ["hidden windows of earlier runs", "time"], rows)


def startup(folder):
    with open(f"{folder}/startup.json", encoding="utf-8") as file:
        times = json.load(file)
    rows = []
    for state in ("warm", "cold"):
        lab, empty = times[f"lab/{state}"], times[f"empty/{state}"]
        if lab:
            lab, empty = statistics.median(lab), statistics.median(empty)
            shown = (figure(lab * MILLI, 0), figure(empty * MILLI, 0))
            rows.append([state, *shown, figure(lab / empty)])
    table("Start-up to the first painted window, ms",
          ["", "Quorin Lab", "five empty charts", "ratio"], rows)


def memory(folder):
    with open(f"{folder}/memory.txt", encoding="ascii") as file:
        resident = [[int(field) / 1024 for field in line.split()] for line in file]
    rows = [[label, figure(resident[runs][0], 1), figure(resident[runs][1], 1)]
            for label, runs in (("after start-up", 0), ("after 1 run", 1), ("after 10 runs", 10),
                                ("after 100 runs", 100))]
    table("Resident memory, MiB", ["", "all", "window images in it"], rows)


def companions(folder):
    simulate = medians(folder, "simulate")
    rows = [[label, figure(simulate[name]["items_per_second"] / 1e6, 1)]
            for label, name in (("logistic, modulation depth", "logisticDepth"),
                                ("Weibull, modulation depth", "weibullDepth"),
                                ("Gaussian, frequency", "gaussianFrequency"),
                                ("constant, modulation depth", "constantDepth"))]
    table("Simulated trials a second and core, millions", ["listener", "trials"], rows)

    report = medians(folder, "report")["report/10000 files, table, csv and summary"]
    table("Reading 10,000 results files, s", ["", "time"],
          [["table, CSV and summary", figure(report["real"])]])

    recorder = medians(folder, "recorder")
    rows = [[label, figure(recorder[f"recorder/{name}"]["real"] * MICRO, 0)]
            for label, name in (("a line to the disk", "one line to the disk/real_time"),
                                ("a line made", "make a line/real_time"),
                                ("the digest of a sound of 600 ms", "digest of a sound/real_time"))]
    table("Recording a run, µs", ["", "time"], rows)


def main(folder):
    for part in (transform, signal, turnaround, listeners, startup, memory, companions):
        part(folder)


main(sys.argv[1])
