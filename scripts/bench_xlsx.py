#!/usr/bin/env python3
"""Runs the benchmarks of spreadsheet templates and prints one Markdown table.

Usage: bench_xlsx.py [--repetitions N] [--fill-template PROGRAM] FOLDER

FOLDER is that of the built programs, benchmarks/xlsx of a build folder. Each figure is the user time and the peak memory of a
whole process: the median of its repetitions, which take turns, so that a load on the machine meets a figure and its yardstick
alike. openpyxl is run once. Only the ratios mean anything on another machine, and a benchmark never fails a build.
"""

import argparse
import json
import os
import statistics
import subprocess
import sys
import tempfile

SOURCES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "benchmarks", "xlsx")
OPERATOR_TIME_AIM, TIME_AIM, MEMORY_AIM, LOAD_AIM = 1.6, 1.3, 1.1, 1.3
ROWS = 10000
GROWTH_AIM, TOOL_AIM = 18, 1.2  # of 16 times the rows; of fill-template's memory to the library's
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


def bench_rows(program, arguments, work, output):
    """The row of the invoice's items, ROWS times and 16 times as often; and by fill-template, from JSON."""
    invoice = os.path.join(work, "invoice.xlsx")
    few = measure({"few": [program, "--rows", str(ROWS), invoice, output]}, arguments.repetitions)["few"]
    many = run([program, "--rows", str(16 * ROWS), invoice, output])
    print(f"| setRows, {ROWS:,} rows, user time of the whole process | {few[0]:.3f} s | 1 s | {few[0]:.2f} | {verdict(few[0], 1)} |")
    print(f"| setRows, {16 * ROWS:,} rows, user time to that of {ROWS:,} | {many[0]:.3f} s | {few[0]:.3f} s | {many[0] / few[0]:.1f} | {verdict(many[0] / few[0], GROWTH_AIM)} |")
    if not arguments.fill_template:
        return
    values = os.path.join(work, "values.json")
    for shape, wrapped in (("arrays", lambda k: [f"Item {k}", k % 9 + 1, k / 4]), ("objects", lambda k: {"Item": f"Item {k}", "Quantity": k % 9 + 1, "Price": k / 4})):
        with open(values, "w", encoding="utf-8") as file:
            json.dump({"Items": {"rows": [wrapped(k) for k in range(10 * ROWS)]}}, file)
        library = run([program, "--rows", str(10 * ROWS), invoice, output])
        tool = run([arguments.fill_template, "fill", "--quiet", invoice, values, output])
        row(f"fill-template fills in {10 * ROWS:,} rows from {shape}, peak memory, to the library", tool[1], library[1], TOOL_AIM, ("MiB", 0))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--repetitions", type=int, default=5)
    parser.add_argument("--python", default="/usr/bin/python3", help="a Python that has openpyxl")
    parser.add_argument("--fill-template", help="the program, to be measured beside the library")
    parser.add_argument("folder")
    arguments = parser.parse_args()

    with tempfile.TemporaryDirectory() as work:
        subprocess.run([sys.executable, os.path.join(SOURCES, "make_templates.py"), work], check=True)
        output = os.path.join(work, "output.xlsx")
        programs = {name: os.path.join(arguments.folder, "xlsx_fill_" + name) for name in ("template", "velmora", "bare")}
        aims = {"template": ("XlsxTemplate", TIME_AIM), "velmora": ("XlsxOperator", OPERATOR_TIME_AIM)}
        second, mebibyte = ("s", 3), ("MiB", 0)
        print("| Metric | Ours | Yardstick | Ratio | Aim | |\n|---|--:|--:|--:|--:|---|")
        for name in ("T1", "T2", "T3"):
            template = os.path.join(work, name + ".xlsx")
            figures = measure({key: [program, template, output] for key, program in programs.items()}, arguments.repetitions)
            other = run([arguments.python, os.path.join(SOURCES, "fill_openpyxl.py"), template, output])
            has_aim = name != "T1"  # there the start of a process that links Qt is what is measured
            for key, (who, time_aim) in aims.items():
                for index, what, aim, unit in ((0, "user time", time_aim, second), (1, "peak memory", MEMORY_AIM, mebibyte)):
                    row(f"{who} fills {name}, {what}, to the bare program", figures[key][index], figures["bare"][index], aim if has_aim else None, unit)
                    row(f"{who} fills {name}, {what}, to openpyxl", figures[key][index], other[index], None, unit)
        bench_rows(programs["template"], arguments, work, output)
        ours = programs["velmora"]
        template = os.path.join(work, "T3.xlsx")
        loads = measure({"all": [ours, "--load", template, ""], "five": [ours, "--load", template, FIVE_NAMES]}, arguments.repetitions)
        row("Load T3, user time, 5,000 names to 5", loads["all"][0], loads["five"][0], LOAD_AIM, second)


if __name__ == "__main__":
    main()
