#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

"""Compares the samples of a run of the benchmarks with bench/bounds.tsv: one table, and the same as JSON.

A file SAMPLES/PROGRAM.json holds the samples of a program by name. The figure of each is its median, and the noise of a line half
the width of what 95 of 100 medians lie in when the samples are drawn again. A bound counts as missed when even the better end of
that is beyond it; then, and when a sample of a line is not there, this ends with an error."""

import argparse
import json
import os
import random
import statistics
import sys

COLUMNS = ("what", "unit", "ours", "bare", "peer", "ratio", "most")
DRAWS = 2000
TITLES = ("what", "ours", "bare", "peer", "ratio", "bound", "noise", "")


def read_bounds(path):
    """The lines of the table as dictionaries; None where it says -."""
    lines = []
    with open(path, encoding="utf-8") as table:
        for number, text in enumerate(table, 1):
            if not text.strip() or text.startswith("#"):
                continue
            fields = text.rstrip("\n").split("\t")
            if len(fields) != len(COLUMNS):
                raise ValueError(f"{path}:{number}: {len(fields)} fields, not {len(COLUMNS)}")
            line = {name: None if field == "-" else field for name, field in zip(COLUMNS, fields)}
            for name in ("ratio", "most"):
                line[name] = None if line[name] is None else float(line[name])
            if line["ours"] is None or (line["ratio"] is not None and line["bare"] is None):
                raise ValueError(f"{path}:{number}: nothing to compare")
            lines.append(line)
    return lines


def read_samples(folder):
    samples = {}
    for name in sorted(os.listdir(folder)):
        program, kind = os.path.splitext(name)
        if kind != ".json":
            continue
        with open(os.path.join(folder, name), encoding="utf-8") as text:
            for sample, values in json.load(text).items():
                samples[f"{program}/{sample}"] = values
    return samples


def program_of(name):
    return name.split("/")[0]


def spread(figure, *sides):
    """The lower and the upper end of 95 of 100 figures of samples drawn again from the sides; always the same for the same samples."""
    draw = random.Random(1)
    drawn = sorted(figure(*(draw.choices(side, k=len(side)) for side in sides)) for _ in range(DRAWS))
    return drawn[int(DRAWS * 0.025)], drawn[int(DRAWS * 0.975)]


def ratio_of(ours, bare):
    return statistics.median(ours) / statistics.median(bare)


def judge(line, samples):
    """The line with its figures and "verdict": held, noise (beyond the bound, but not beyond the noise), missed, measured, absent."""
    result = dict(line)
    sides = {side: samples.get(line[side]) if line[side] else None for side in ("ours", "bare", "peer")}
    result["absent"] = [line[side] for side, values in sides.items() if line[side] and not values]
    for side, values in sides.items():
        result[side + "_median"] = statistics.median(values) if values else None
    if result["absent"]:
        result["verdict"] = "absent"
        return result
    verdicts = []
    result["measured_ratio"] = ratio_of(sides["ours"], sides["bare"]) if sides["bare"] else None
    figures = []
    if line["most"] is not None or not sides["bare"]:
        figures.append((result["ours_median"], line["most"], *spread(statistics.median, sides["ours"])))
    if sides["bare"]:
        figures.append((result["measured_ratio"], line["ratio"], *spread(ratio_of, sides["ours"], sides["bare"])))
    result["noise"] = max((upper - lower) / 2 / value if value else 0 for value, _, lower, upper in figures)
    for value, bound, lower, _ in figures:
        if bound is not None:
            verdicts.append("held" if value <= bound else "missed" if lower > bound else "noise")
    result["verdict"] = next((verdict for verdict in ("missed", "noise", "held") if verdict in verdicts), "measured")
    return result


SAID = {"held": "held", "noise": "within noise", "missed": "MISSED", "measured": "", "absent": "NOT MEASURED"}


def shown(value, unit=""):
    if value is None:
        return ""
    text = f"{value:.2f}" if value < 10 else f"{value:,.1f}" if value < 100 else f"{value:,.0f}"
    return f"{text} {unit}".strip()


def row_of(result):
    unit = result["unit"]
    bounds = [shown(result["ratio"])] if result["ratio"] is not None else []
    bounds += [shown(result["most"], unit)] if result["most"] is not None else []
    noise = result.get("noise")
    said = SAID[result["verdict"]]
    if result["absent"]:
        said += ": " + ", ".join(result["absent"])
    return (result["what"], *(shown(result[side + "_median"], unit) for side in ("ours", "bare", "peer")),
            shown(result.get("measured_ratio")), ", ".join(bounds), "" if noise is None else f"±{noise:.0%}", said)


def print_table(rows):
    widths = [max(len(row[i]) for row in (TITLES, *rows)) for i in range(len(TITLES))]
    for row in (TITLES, tuple("-" * width for width in widths), *rows):
        print("| " + " | ".join(f"{text:{width}}" if i in (0, len(row) - 1) else f"{text:>{width}}"
                                for i, (text, width) in enumerate(zip(row, widths))) + " |")


def machine():
    with open("/proc/cpuinfo", encoding="utf-8") as info:
        names = [line.split(":")[1].strip() for line in info if line.startswith("model name")]
    with open("/proc/meminfo", encoding="utf-8") as info:
        memory = int(info.readline().split()[1])
    return {"processors": os.cpu_count(), "processor": names[0] if names else "", "memory_MiB": memory // 1024,
            "load": list(os.getloadavg())}


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("samples", help="folder with the samples")
    parser.add_argument("--bounds", default=os.path.join(os.path.dirname(os.path.abspath(__file__)), "bounds.tsv"))
    parser.add_argument("--json", help="file for the results")
    parser.add_argument("--only", nargs="*", help="programs whose lines count")
    parser.add_argument("--names", action="store_true", help="looks only whether each line's samples are there, as after a trial")
    options = parser.parse_args()
    samples = read_samples(options.samples)
    lines = [line for line in read_bounds(options.bounds) if not options.only or program_of(line["ours"]) in options.only]
    results = [judge(line, samples) for line in lines]
    if options.names:
        absent = [name for result in results for name in result["absent"]]
        for name in absent:
            print(f"not measured: {name}")
        return 1 if absent or not results else 0
    print_table([row_of(result) for result in results])
    if options.json:
        with open(options.json, "w", encoding="utf-8") as file:
            json.dump({"machine": machine(), "results": results, "samples": samples}, file, ensure_ascii=False, indent=1)
    bad = [result for result in results if result["verdict"] in ("missed", "absent")]
    print(f"\n{len(results)} lines, {len(bad)} missed or not measured")
    return 1 if bad or not results else 0


if __name__ == "__main__":
    sys.exit(main())
