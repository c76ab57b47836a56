#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Prints the tables of docs/performance.md from the results of a run of ./bench.

usage: report.py FOLDER MACHINE NAME...: the folder of the results, the machine that they are from,
and the names of the tables
"""
import json
import statistics
import sys

MICRO = 1e6
MILLI = 1e3
MACHINE = sys.argv[2]


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


def table(command, title, heading, rows):
    """Prints a Markdown table, what it was measured on and by which command. The first column is
    text, the others are figures."""
    print(f"\n## {title}\n")
    print("| " + " | ".join(str(cell) for cell in heading) + " |")
    print("|---" + "|--:" * (len(heading) - 1) + "|")
    for row in rows:
        print("| " + " | ".join(str(cell) for cell in row) + " |")
    print(f"\n{MACHINE}: `./bench {command}`")


def figure(value, digits=2):
    return f"{value:.{digits}f}"


LENGTHS = (1024, 8192, 32768, 262144)
FFTW_PLANNED = ("FFTW/estimate+execute", "FFTW/estimate+execute r2c")
FFTW_MEASURED = ("FFTW/execute measured", "FFTW/execute measured r2c")
TRANSFORMS = (
    ("FFTReal: build + transform", "FFTReal/build+transform", FFTW_PLANNED),
    ("FFTW: plan (estimate) + execute, half-complex", FFTW_PLANNED[0], None),
    ("FFTW: plan (estimate) + execute, complex", FFTW_PLANNED[1], None),
    ("FFTW: plan (remembered) + execute, half-complex", "FFTW/remembered+execute", None),
    ("Kiss FFT: build + transform", "Kiss FFT/build+execute", FFTW_PLANNED),
    ("FFTReal: transform", "FFTReal/transform", FFTW_MEASURED),
    ("FFTReal: transform, no AVX2", "FFTReal/transform plain", FFTW_MEASURED),
    ("FFTW: execute, measured, half-complex", FFTW_MEASURED[0], None),
    ("FFTW: execute, measured, complex", FFTW_MEASURED[1], None),
    ("Kiss FFT: transform", "Kiss FFT/execute", FFTW_MEASURED))


def transform(folder):
    results = medians(folder, "transform")

    def times(name):
        return [results[f"{name}/{n}"]["cpu"] for n in LENGTHS]

    measured = [row for row in TRANSFORMS if f"{row[1]}/{LENGTHS[0]}" in results]
    ratios = []
    for label, name, references in measured:
        if references and f"{references[0]}/{LENGTHS[0]}" in results:
            best = map(min, *map(times, references))
            ratios.append([label, *(figure(t / least) for t, least in zip(times(name), best))])
    table("transform", "Transform, beside the better of FFTW's two", ["", *LENGTHS], ratios)
    table("transform", "Transform, µs", ["", *LENGTHS],
          [[label, *(figure(t * MICRO, 1) for t in times(name))] for label, name, _ in measured])
    errors(results)


def errors(results):
    rows = {}
    for label, name in (("FFTReal", "FFTReal/transform"), ("FFTW, half-complex", FFTW_MEASURED[0]),
                        ("FFTW, complex", FFTW_MEASURED[1]), ("Kiss FFT", "Kiss FFT/execute")):
        if f"{name}/{LENGTHS[0]}" in results:
            rows[label] = [results[f"{name}/{n}"]["rms"] for n in LENGTHS]
    shown = [[label, *(figure(error * 1e16) for error in row)] for label, row in rows.items()]
    if "FFTW, complex" in rows:
        best = map(min, rows["FFTW, half-complex"], rows["FFTW, complex"])
        ratios = [figure(ours / least) for ours, least in zip(rows["FFTReal"], best)]
        shown.insert(0, ["FFTReal / the better of FFTW's two", *ratios])
    table("transform", "RMS error of the transform, 10⁻¹⁶ of the spectrum's RMS", ["", *LENGTHS],
          shown)


def sounds(folder):
    results = medians(folder, "sounds")

    def row(label, name, *calls):
        time, least = results[name]["cpu"], sum(results[call]["cpu"] for call in calls)
        return [label, figure(time / least), figure(time * MICRO, 0), figure(least * MICRO, 0)]

    noise, sinusoid, cosine = (f"bare loop/{name}" for name in ("noise", "sinusoid", "cosine"))
    table("sounds", "Sounds", ["", "ratio", "time, µs", "its library calls alone, µs"],
          [row("`genWav`, noise, trial", "genWav/trial/noise", noise),
           row("`genWav`, sinusoid, trial", "genWav/trial/sinusoid", sinusoid),
           row("`genWav`, noise, View", "genWav/View/noise", noise, noise),
           row("`genWav`, sinusoid, View", "genWav/View/sinusoid", sinusoid, sinusoid)])
    table("sounds", "Sounds of a trial, were the standard's cosines called too",
          ["", "ratio", "time, µs", "these calls alone, µs"],
          [row("noise", "genWav/trial/noise", noise, cosine),
           row("sinusoid", "genWav/trial/sinusoid", sinusoid, cosine)])
    table("sounds", "Overhead of the spectra", ["", "ratio", "time, µs", "its parts alone, µs"],
          [row("`genFFT`", "genFFT", "genFFT/parts")])


def answer(folder):
    results = medians(folder, "answer")

    def rows(prefix, shown):
        result = []
        for name, entry in results.items():
            if name.startswith(prefix):
                ratio = [figure(entry["real"] / entry["plain"])] if shown else []
                times = [entry["real"], entry["plain"]] if shown else []
                times += [entry["computing"], entry["armed"]]
                result.append([name[len(prefix):], *ratio, *(figure(t * MILLI) for t in times)])
        return result

    parts = ["computing", "until the timer runs"]
    heading = ["ratio", "until the event loop is free", "plain charts", *parts]
    table("answer", "From an answer to the next trial, ms", ["", *heading],
          rows("turnaround/", True))
    table("answer", "Growth with the trial, ms", ["trial", *heading], rows("growth/trial/", True))
    table("answer", "Growth with the duration (ms), ms", ["duration", *parts],
          rows("growth/duration/", False))
    table("answer", "Growth with the sampling rate (Hz), ms", ["rate", *parts],
          rows("growth/rate/", False))


def light(folder):
    results = medians(folder, "light")
    rows = [[name.split("/")[2], figure(entry["real"] * MILLI, 3)]
            for name, entry in results.items()]
    table("light", "From the signal to the current listener's light, ms",
          ["hidden windows of earlier runs", "time"], rows)


def first_tick(folder):
    latenesses = {}
    with open(f"{folder}/first-tick.txt", encoding="ascii") as file:
        for sound, period, *times in map(str.split, file):
            latenesses.setdefault(period, {})[sound] = [float(time) for time in times]
    rows = []
    for period, by_sound in latenesses.items():
        columns = [by_sound["noise"], by_sound["sinusoid"]]
        rows.append([period, *(figure(value, 1) for times in columns
                               for value in (statistics.median(times), max(times)))])
    table("first-tick", "The first tick after an answer, ms after it is due",
          ["T, ms", "noise", "at most", "sinusoid", "at most"], rows)


def startup(folder):
    with open(f"{folder}/startup.json", encoding="utf-8") as file:
        times = {name: statistics.median(values)
                 for name, values in json.load(file).items() if values}
    rows = []
    for label, name in (("the same charts, plainly, raster window", "plain"),
                        ("five empty charts, raster window", "empty raster"),
                        ("five empty charts as Qt makes them", "empty"), ("Quorin Lab", "lab")):
        row = [label]
        for state in ("warm", "cold"):
            time, lab = (times.get(f"{program}/{state}") for program in (name, "lab"))
            ratio = figure(lab / time) if time and name != "lab" else ""
            row += [ratio, figure(time * MILLI, 0) if time else ""]
        rows.append(row)
    table("startup", "Start-up to the first painted window, ms",
          ["", "Quorin Lab beside it, warm", "warm", "Quorin Lab beside it, cold", "cold"], rows)


def memory(folder):
    with open(f"{folder}/memory.txt", encoding="ascii") as file:
        resident = [[int(field) / 1024 for field in line.split()] for line in file]
    rows = [[label, figure(resident[runs][0], 1), figure(resident[runs][1], 1)]
            for label, runs in (("after start-up", 0), ("after 1 run", 1), ("after 10 runs", 10),
                                ("after 100 runs", 100))]
    table("memory", "Resident memory, MiB", ["", "all", "window images in it"], rows)


def simulate(folder):
    results = medians(folder, "simulate")
    rows = [[label, figure(results[name]["items_per_second"] / 1e6, 1)]
            for label, name in (("logistic, modulation depth", "logisticDepth"),
                                ("Weibull, modulation depth", "weibullDepth"),
                                ("Gaussian, frequency", "gaussianFrequency"),
                                ("constant, modulation depth", "constantDepth"))]
    table("simulate", "Simulated trials a second and core, millions", ["listener", "trials"], rows)


def report(folder):
    result = medians(folder, "report")["report/10000 files, table, csv and summary"]
    table("report", "Reading 10,000 results files, s", ["", "time"],
          [["table, CSV and summary", figure(result["real"])]])


def recorder(folder):
    results = medians(folder, "recorder")
    rows = [[label, figure(results[f"recorder/{name}"]["real"] * MICRO, 0)]
            for label, name in (("a line to the disk", "one line to the disk/real_time"),
                                ("a line made", "make a line/real_time"),
                                ("the digest of a sound of 600 ms", "digest of a sound/real_time"))]
    table("recorder", "Recording a run, µs", ["", "time"], rows)


TABLES = {"transform": transform, "sounds": sounds, "answer": answer, "light": light,
          "first-tick": first_tick, "startup": startup, "memory": memory, "simulate": simulate,
          "report": report, "recorder": recorder}
for table_name in sys.argv[3:]:
    TABLES[table_name](sys.argv[1])
