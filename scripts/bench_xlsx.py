#!/usr/bin/env python3
"""Runs the benchmarks of spreadsheet templates and prints one Markdown table.

Usage: bench_xlsx.py [--repetitions N] FOLDER

FOLDER is that of the built programs, benchmarks/xlsx of a build folder. Each figure is the user time and the peak memory of a
whole process: the median of its repetitions, which take turns, so that a load on the machine meets a figure and its yardstick
alike. openpyxl is run once. Only the ratios mean anything on another machine, and a benchmark never fails a build.
"""

import argparse
import os
import statistics
import subprocess
import sys
import tempfile

SOURCES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "benchmarks", "xlsx")
TIME_AIM, MEMORY_AIM, LOAD_AIM = 1.6, 1.1, 1.3
FIVE_NAMES = "^N0000[0-4]$"


def run(command):
    """User seconds and peak MiB of a process and of nothing else."""
    process = subprocess.Popen(command)
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        sys.exit(f"{' '.join(command)}: exit status {process.returncode}")
    return usage.ru_utime, usage.ru_maxrss / 1024


def measure(commands, repetitions):
    """The median user time and peak memory of each of the commands."""
    runs = {name: [] for name in commands}
    for _ in range(repetitions):
        for name, command in commands.items():
            runs[name].append(run(command))
    return {name: tuple(statistics.median(column) for column in zip(*figures)) for name, figures in runs.items()}


def verdict(ratio, aim):
    return f"≤ {aim} | {'met' if ratio <= aim else '**not met**'}"


def row(metric, ours, yardstick, aim, unit):
    ratio = ours / yardstick
    print(f"| {metric} | {ours:.{unit[1]}f} {unit[0]} | {yardstick:.{unit[1]}f} {unit[0]} | {ratio:.2f} | {verdict(ratio, aim) if aim else ' | '} |")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--repetitions", type=int, default=5)
    parser.add_argument("--python", default="/usr/bin/python3", help="a Python that has openpyxl")
    parser.add_argument("folder")
    arguments = parser.parse_args()

    with tempfile.TemporaryDirectory() as work:
        subprocess.run([sys.executable, os.path.join(SOURCES, "make_templates.py"), work], check=True)
        output = os.path.join(work, "output.xlsx")
        ours = os.path.join(arguments.folder, "xlsx_fill_velmora")
        bare = os.path.join(arguments.folder, "xlsx_fill_bare")
        second, mebibyte = ("s", 3), ("MiB", 0)
        print("| Metric | Ours | Yardstick | Ratio | Aim | |\n|---|--:|--:|--:|--:|---|")
        for name in ("T1", "T2", "T3"):
            template = os.path.join(work, name + ".xlsx")
            figures = measure({"ours": [ours, template, output], "bare": [bare, template, output]}, arguments.repetitions)
            other = run([arguments.python, os.path.join(SOURCES, "fill_openpyxl.py"), template, output])
            has_aim = name != "T1"  # there the start of a process that links Qt is what is measured
            for index, what, aim, unit in ((0, "user time", TIME_AIM, second), (1, "peak memory", MEMORY_AIM, mebibyte)):
                row(f"Fill {name}, {what}, to the bare program", figures["ours"][index], figures["bare"][index], aim if has_aim else None, unit)
                row(f"Fill {name}, {what}, to openpyxl", figures["ours"][index], other[index], None, unit)
        template = os.path.join(work, "T3.xlsx")
        loads = measure({"all": [ours, "--load", template, ""], "five": [ours, "--load", template, FIVE_NAMES]}, arguments.repetitions)
        row("Load T3, user time, 5,000 names to 5", loads["all"][0], loads["five"][0], LOAD_AIM, second)


if __name__ == "__main__":
    main()
