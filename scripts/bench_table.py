#!/usr/bin/env python3
"""Runs the benchmarks and prints their ratios as one Markdown table.

Usage: bench_table.py [--repetitions N] [--min-time SECONDS] [--only PATTERN] [--json FILE] PROGRAM

PROGRAM is the built velmora_benchmarks. Each figure is the median CPU time of its repetitions. A figure and its yardsticks run
in one process and in random order, so that a load on the machine meets them alike, and in a process of their own, since the
holes that other benchmarks leave in the memory make every allocation dearer. Those of very many widgets and the like are
repeated three times, whatever N. Only the ratios mean anything on another machine. The exit status is 0 whatever the ratios
are: a benchmark never fails a build.
"""

import argparse
import json
import os
import re
import subprocess
import sys
import tempfile

NANOSECONDS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}

# Metric, ours, yardstick, largest ratio (None: no aim), words for the yardstick.
COMPARISONS = [
    ("Look up 4,000 tokens by record", "LookUp/record/4000", "LookUp/hash/4000", None, "bare `QHash`"),
    ("Look up 4,000 tokens by text", "LookUp/code/4000", "LookUp/hash/4000", None, "bare `QHash`"),
    ("`GetPixmap` first, resource", "GetFirst/resource", "IconFirst/resource", None, "`QIcon::pixmap` first"),
    ("`GetPixmap` first, file", "GetFirst/disk", "IconFirst/disk", None, "`QIcon::pixmap` first"),
    ("1,000 `GetPixmap` repeated, resource", "GetRepeated/resource/1000", "IconRepeated/resource/1000", None, "`QIcon::pixmap` repeated"),
    ("1,000 `GetPixmap` repeated, file", "GetRepeated/disk/1000", "IconRepeated/disk/1000", None, "`QIcon::pixmap` repeated"),
    ("Paint one button", "PaintOne/velmora", "PaintOne/bare_painter", 1.25, "bare painter"),
    ("Paint one button", "PaintOne/velmora", "PaintOne/application_sheet", None, "application stylesheet"),
    ("Paint one button", "PaintOne/velmora", "PaintOne/sheet_on_each", None, "stylesheet on each"),
    ("Paint one button", "PaintOne/velmora", "PaintOne/palette", None, "Fusion and palette"),
    ("Construct and show 1,000 buttons", "ConstructAndShow/velmora/1000", "ConstructAndShow/application_sheet/1000", 1.0,
     "application stylesheet"),
    ("Construct and show 1,000 buttons", "ConstructAndShow/velmora/1000", "ConstructAndShow/sheet_on_each/1000", None, "stylesheet on each"),
    ("Construct and show 1,000 buttons", "ConstructAndShow/velmora/1000", "ConstructAndShow/palette/1000", 0.7, "Fusion and palette"),
    ("Construct and show 1,000 buttons", "ConstructAndShow/velmora/1000", "ConstructAndShow/bare_painter/1000", None, "bare painter"),
    ("Switch the theme of 1,000 buttons", "SwitchTheme/velmora/1000", "SwitchTheme/palette/1000", 0.55, "Fusion and palette"),
    ("Switch the theme of 1,000 buttons", "SwitchTheme/velmora/1000", "SwitchTheme/application_sheet/1000", None, "application stylesheet"),
    ("Switch the theme of 1,000 buttons", "SwitchTheme/velmora/1000", "SwitchTheme/sheet_on_each/1000", None, "stylesheet on each"),
    ("Switch the theme of 1,000 buttons", "SwitchTheme/velmora/1000", "SwitchTheme/bare_painter/1000", None, "bare painter"),
    ("Post 1,000 tasks", "Post/task/1000", "Post/bare/1000", 1.3, "bare `invokeMethod`"),
    ("Post 16,000 tasks", "Post/task/16000", "Post/bare/16000", 1.3, "bare `invokeMethod`"),
    ("Post 1,000 owned tasks", "Post/owned/1000", "Post/bare/1000", 1.3, "bare `invokeMethod`"),
    ("Post 16,000 owned tasks", "Post/owned/16000", "Post/bare/16000", 1.3, "bare `invokeMethod`"),
    ("1,000 buttons come and go", "ComeAndGoButton/velmora/1000", "ComeAndGoButton/plain/1000", None, "`QPushButton`"),
    ("1,000 frames come and go", "ComeAndGoFrame/velmora/1000", "ComeAndGoFrame/plain/1000", None, "`QFrame`"),
    ("1,000 labels come and go", "ComeAndGoLabel/velmora/1000", "ComeAndGoLabel/plain/1000", None, "`QLabel`"),
    ("Resize a stack of 400 pages", "ResizeStack/velmora/400", "ResizeStack/plain/400", 1.1, "`QStackedWidget`"),
    ("A text changes on one of 400 pages", "RelayOutPage/velmora/400", "RelayOutPage/plain/400", 1.0, "`QStackedWidget`"),
    ("1,000 changes of the page", "SwitchPages/velmora/1000", "SwitchPages/plain/1000", 1.0, "`QStackedWidget`"),
    ("A key in a text edit frame of 100 characters", "TypeKey/frame/100", "TypeKey/plain/100", 1.2, "`QTextEdit` and a count"),
    ("A key in a text edit frame of 1 MB", "TypeKey/frame/1048576", "TypeKey/plain/1048576", 1.2, "`QTextEdit` and a count"),
    ("A key in a text edit frame of 1 MB whose text is heard", "TypeKey/frame_heard/1048576", "TypeKey/plain/1048576", None, "`QTextEdit` and a count"),
    ("A key in a text edit limiter of 100 characters", "TypeKey/limiter/100", "TypeKey/plain/100", 1.2, "`QTextEdit` and a count"),
    ("A key in a text edit limiter of 1 MB", "TypeKey/limiter/1048576", "TypeKey/plain/1048576", 1.2, "`QTextEdit` and a count"),
    ("3,000 items, one by one", "AddItems/velmora/3000", "AddItems/plain/3000", 2.0, "`QComboBox`"),
    ("Open a list of 10,000 items", "OpenList/velmora/10000", "OpenList/plain/10000", 1.0, "`QComboBox`"),
    ("Make and delete 1,000 buttons", "MakeAndDeleteButton/velmora/1000", "MakeAndDeleteButton/plain/1000", None, "`QPushButton`"),
    ("Open a menu of 10 items", "OpenMenu/velmora/10", "OpenMenu/plain/10", 1.0, "`QMenu` with a stylesheet"),
    ("Open a menu of 100 items", "OpenMenu/velmora/100", "OpenMenu/plain/100", 1.0, "`QMenu` with a stylesheet"),
    ("Open a menu of 1,000 items", "OpenMenu/velmora/1000", "OpenMenu/plain/1000", 3.0, "`QMenu` with a stylesheet"),
    ("1,000 toasts in one turn", "ShowToasts/velmora/1000", "ShowToasts/plain/1000", None, "`QFrame` of the same children and animations"),
    ("A message on a notification card", "ShowMessages/velmora/1", "ShowMessages/plain/1", None, "`QFrame` of the same children and animations"),
    ("1,000 messages in one turn", "ShowMessages/velmora/1000", "ShowMessages/plain/1000", None, "`QFrame` of the same children and animations"),
    ("Progress in 100,000 values", "CountUp/velmora/100000", "CountUp/plain/100000", 1.2, "`QDialog` of bar and label"),
    ("1,000 changes of the range under an overlay scroll bar", "ChangeRange/velmora/1000", "ChangeRange/plain/1000", 1.5,
     "`QScrollBar` with a stylesheet"),
    ("Paint a menu of 20 items", "PaintMenu/velmora", "PaintMenu/plain", 1.0, "`QMenu` with a stylesheet"),
    ("Switch the theme of 1,000 plain widgets that follow the table", "SwitchTheme/plain_widgets/follow/1000",
     "SwitchTheme/plain_widgets/palettes/1000", 1.3, "`QApplication::setPalette`, same stylesheet"),
    ("Switch the theme of 1,000 plain widgets that follow the table", "SwitchTheme/plain_widgets/follow/1000",
     "SwitchTheme/plain_widgets/no_sheet/1000", None, "`QApplication::setPalette`, no stylesheet"),
    ("Construct and show 1,000 plain widgets that follow the table", "ConstructAndShow/plain_widgets/follow/1000",
     "ConstructAndShow/plain_widgets/stay/1000", 1.3, "the same that do not"),
    ("Tab through 1,000 buttons with keyboard cues", "MoveFocus/velmora/cues/1000", "MoveFocus/velmora/no_cues/1000", None, "without cues"),
    ("Tab through 1,000 plain buttons with keyboard cues", "MoveFocus/plain/cues/1000", "MoveFocus/plain/no_cues/1000", 1.3,
     "without cues"),
]

# Docking: metric, counter, largest ratios at 20, 100 and 400 panels.
PANELS = (20, 100, 400)
DOCKING = [
    ("Build and show", "build", (1.3, 0.3, 0.06)),
    ("Float and dock again", "float", (0.45, 0.15, 0.05)),
    ("Save the layout of", "save", (None, None, None)),
    ("Restore", "restore", (None, None, None)),
    ("Switch the theme of", "switch", (None, None, None)),
    ("Close", "close", (None, None, None)),
]
for metric, counter, aims in DOCKING:
    for count, aim in zip(PANELS, aims):
        COMPARISONS.append((f"{metric}, {count} panels", f"Docking/velmora/{count}#{counter}", f"Docking/plain/{count}#{counter}", aim, "`QDockWidget`"))

for count in PANELS:
    COMPARISONS.append((f"Restore, {count} panels", f"Docking/velmora/{count}#restore", f"Docking/velmora/{count}#build", 1.3, "their own building"))
COMPARISONS += [
    ("Build and show, 400 panels", "Docking/velmora/400#build", "Docking/velmora/100#build", 4.8, "100 panels"),
    ("Restore, 400 panels", "Docking/velmora/400#restore", "Docking/velmora/100#restore", 5.0, "100 panels"),
    ("A step of a drag among 400 panels", "DockDragStep/velmora/400", "DockDragStep/velmora/20", None, "20 panels"),
]

# Metric, repeated request (figure, requests in it), first request.
REPEATS = [
    ("`GetPixmap` repeated to first, resource", "GetRepeated/resource/1000", 1000, "GetFirst/resource"),
    ("`GetPixmap` repeated to first, file", "GetRepeated/disk/1000", 1000, "GetFirst/disk"),
]
REPEAT_AIM = 0.02

# Metric, counter, exact value.
COUNTERS = [
    ("Paints a button and theme switch", "paints_per_widget", 1),
    ("Style changes a button and theme switch", "style_changes_per_widget", 0),
    ("Paints when idle", "paints_when_idle", 0),
]

# Metric, ours, yardstick or None, smallest N.
GROWTHS = [
    ("token lookup by record", "LookUp/record", "LookUp/hash", 1000),
    ("token lookup by text", "LookUp/code", "LookUp/hash", 1000),
    ("resolving, rules without codes", "Resolve/text", None, 100),
    ("resolving, codes", "Resolve/codes", None, 100),
    ("repeated `GetPixmap`, resource", "GetRepeated/resource", "IconRepeated/resource", 1000),
    ("repeated `GetPixmap`, file", "GetRepeated/disk", "IconRepeated/disk", 1000),
    ("`GetPixmap` among N kept", "GetManyKept", None, 250),
    ("construct and show", "ConstructAndShow/velmora", "ConstructAndShow/bare_painter", 250),
    ("theme switch", "SwitchTheme/velmora", "SwitchTheme/bare_painter", 250),
    ("posting tasks", "Post/task", "Post/bare", 1000),
    ("posting owned tasks", "Post/owned", "Post/bare", 1000),
    ("buttons come and go", "ComeAndGoButton/velmora", "ComeAndGoButton/plain", 250),
    ("frames come and go", "ComeAndGoFrame/velmora", "ComeAndGoFrame/plain", 250),
    ("labels come and go", "ComeAndGoLabel/velmora", "ComeAndGoLabel/plain", 250),
    ("items, one by one", "AddItems/velmora", "AddItems/plain", 750),
    ("messages in one turn", "ShowMessages/velmora", "ShowMessages/plain", 250),
    ("toasts in one turn", "ShowToasts/velmora", "ShowToasts/plain", 250),
    ("make and delete buttons", "MakeAndDeleteButton/velmora", "MakeAndDeleteButton/plain", 250),
    ("plain widgets that follow the table, construct and show", "ConstructAndShow/plain_widgets/follow",
     "ConstructAndShow/plain_widgets/stay", 250),
    ("plain widgets that follow the table, theme switch", "SwitchTheme/plain_widgets/follow", "SwitchTheme/plain_widgets/palettes", 250),
    ("Tab through buttons with keyboard cues", "MoveFocus/velmora/cues", "MoveFocus/velmora/no_cues", 250),
    ("Tab through plain buttons with keyboard cues", "MoveFocus/plain/cues", "MoveFocus/plain/no_cues", 250),
]
GROWTH_AIM = 18.0

# What N widgets should hardly be felt in: an event of another widget, or the resize of the window around them.
# "#counter" stands for a counter of nanoseconds in place of the benchmark's own time.
EVENTS = [("a press beside N", "press"), ("a mouse move beside N", "move"), ("a resize beside N", "resize"),
          ("another event beside N", "other")]
NEIGHBOURS = [
    ("buttons", "velmora", "palette", 250),
    ("line edits", "line_edit/velmora", "line_edit/plain", 100),
    ("windows", "window/velmora", "window/plain", 100),
]
BESIDES = [(f"{event} {neighbours}", f"Elsewhere/{ours}#{counter}", f"Elsewhere/{yardstick}#{counter}", smallest)
           for event, counter in EVENTS for neighbours, ours, yardstick, smallest in NEIGHBOURS]
BESIDES += [(f"a resize around N {words}", f"ResizeAround/{name}/velmora", f"ResizeAround/{name}/plain", 100)
            for name, words in (("line_edit", "line edits"), ("window", "windows"))]
BESIDE_AIM = 2.0

# Controls that stand beside the plain Qt one with a stylesheet of its own: name in the benchmarks, words.
CONTROLS = [
    ("check_box", "check box", "`QCheckBox`"),
    ("radio_button", "radio button", "`QRadioButton`"),
    ("switch_button", "switch", "`QCheckBox`"),
    ("multi_line_text", "multi-line text", "`QLabel`"),
    ("tool_button", "tool button", "`QToolButton`"),
    ("combined_tool_button", "combined tool button", "`QFrame` of two `QToolButton`"),
    ("menu_tool_button", "menu tool button", "`QToolButton` with an arrow"),
    ("menu_text_button", "menu text button", "`QPushButton`"),
    ("slider", "slider", "`QSlider`"),
    ("selector", "selector", "`QComboBox`"),
    ("spin_box", "spin box", "`QSpinBox`"),
    ("double_spin_box", "double spin box", "`QDoubleSpinBox`"),
    ("text_edit_frame", "text edit frame", "`QFrame` of `QTextEdit` and a count"),
    ("text_edit_limiter", "text edit limiter", "`QFrame` of `QTextEdit`, a count and a bar"),
    ("stack", "stack of three pages", "`QStackedWidget`"),
    ("line_edit", "line edit", "`QFrame` of `QLineEdit`, unit and button"),
    ("window", "window", "`QFrame` with a title row"),
    ("dialog", "dialog", "`QDialog` with a title row"),
]
FOLLOW_NO_THEME = ["radio_button", "slider", "stack"]
SHOW_AIMS = {"line_edit": 1.4, "selector": 2.0, "slider": 1.0, "combined_tool_button": 0.8}
SWITCH_AIMS = {"line_edit": 1.35, "combined_tool_button": 0.3}  # of all others 1
CONTROLS_SMALLEST = 100


def add_controls():
    many = 4 * CONTROLS_SMALLEST
    for name, words, plain in CONTROLS:
        def add(metric, benchmark, suffix, aim, words=words, plain=plain, name=name):
            COMPARISONS.append((f"{metric}, {words}", f"{benchmark}/{name}/velmora{suffix}", f"{benchmark}/{name}/plain{suffix}", aim,
                                f"{plain}, stylesheet on each"))

        def add_growth(metric, benchmark, words=words, name=name):
            GROWTHS.append((f"{words}, {metric}", f"{benchmark}/{name}/velmora", f"{benchmark}/{name}/plain", CONTROLS_SMALLEST))

        add("Paint", "PaintOne", "", 1.0)
        add(f"Construct and show {many}", "ConstructAndShow", f"/{many}", SHOW_AIMS.get(name))
        add_growth("construct and show", "ConstructAndShow")
        if name not in FOLLOW_NO_THEME:
            add(f"Switch the theme of {many}", "SwitchTheme", f"/{many}", SWITCH_AIMS.get(name, 1.0))
            add_growth("theme switch", "SwitchTheme")


add_controls()


class Results:
    """Medians of one run: CPU nanoseconds and counters by benchmark name."""

    def __init__(self, document):
        self._medians = {
            bare_name(entry["run_name"]): entry for entry in document["benchmarks"] if entry.get("aggregate_name") == "median"
        }
        self._families = {family(name)[0] for name in self._medians}

    def cpu(self, name, count=None):
        """Of the benchmark NAME, for COUNT if it is one of several."""
        name, _, counter = name.partition("#")
        entry = self._medians[name if count is None else f"{name}/{count}"]
        if counter:
            return entry[counter]
        return entry["cpu_time"] * NANOSECONDS[entry["time_unit"]]

    def has(self, *names):
        """Whether all benchmarks of NAMES have run, for some count."""
        return all(name is None or family(name)[0] in self._families for name in names)

    def counter(self, name, counter):
        return self._medians[name][counter]


def bare_name(benchmark):
    return re.split("/(?:iterations|repeats):", benchmark)[0]


def family(name):
    """NAME without the count of its widgets, and that count."""
    match = re.fullmatch(r"(.*?)(?:/(\d+))?", name.partition("#")[0])
    return match[1], match[2] or ""


def groups(names):
    """The NAMES that run in one process: those of one count that the table compares with each other, and no others."""
    leaders = {}

    def leader(of):
        while leaders.setdefault(of, of) != of:
            of = leaders[of]
        return of

    pairs = [(row[1], row[2]) for row in COMPARISONS + GROWTHS + BESIDES] + [(row[1], row[3]) for row in REPEATS]
    for ours, yardstick in pairs:
        leader(family(ours)[0])
        if yardstick:
            leaders[leader(family(yardstick)[0])] = leader(family(ours)[0])
    together = {}
    for name in names:
        kind, count = family(bare_name(name))
        if kind in leaders:
            together.setdefault((leader(kind), count), []).append(name)
    return list(together.values())


def run(program, repetitions, min_time, only=""):
    document = {"benchmarks": []}
    with tempfile.TemporaryDirectory() as folder: # private to us, as Qt wants its runtime folder
        output = os.path.join(folder, "results.json")
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", QT_FONT_DPI="96", LC_ALL="C.UTF-8", XDG_RUNTIME_DIR=folder)
        listed = subprocess.run([program, "--benchmark_list_tests"], env=environment, stdout=subprocess.PIPE, check=True, text=True)
        for group in groups(listed.stdout.split()):
            if not any(re.search(only, name) for name in group):
                continue
            wanted = "|".join(re.escape(name) for name in group)
            subprocess.run(
                [program, f"--benchmark_filter=^({wanted})$", f"--benchmark_repetitions={repetitions}",
                 "--benchmark_enable_random_interleaving=true", f"--benchmark_min_time={min_time}",
                 "--benchmark_report_aggregates_only=true", f"--benchmark_out={output}", "--benchmark_out_format=json"],
                env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
            with open(output, encoding="utf-8") as results:
                part = json.load(results)
            document.setdefault("context", part["context"])
            document["benchmarks"] += part["benchmarks"]
    return document


def time_text(nanoseconds):
    for unit, name in ((1e6, "ms"), (1e3, "µs")):
        if nanoseconds >= unit:
            return f"{nanoseconds / unit:.3g} {name}"
    return f"{nanoseconds:.3g} ns"


def verdict(ratio, aim):
    if aim is None:
        return "", ""
    return f"≤ {aim:g}", "met" if ratio <= aim else "**not met**"


def table_rows(results):
    """A row for each comparison of which both have run."""
    for metric, ours, requests, first in filter(lambda row: results.has(row[1], row[3]), REPEATS):
        a, b = results.cpu(ours) / requests, results.cpu(first)
        yield (metric, time_text(a), time_text(b), f"{a / b:.4f}", *verdict(a / b, REPEAT_AIM))
    for metric, ours, yardstick, aim, words in filter(lambda row: results.has(row[1], row[2]), COMPARISONS):
        a, b = results.cpu(ours), results.cpu(yardstick)
        yield (metric, time_text(a), f"{time_text(b)} ({words})", f"{a / b:.2f}", *verdict(a / b, aim))
    for metric, ours, yardstick, smallest in filter(lambda row: results.has(row[1], row[2]), BESIDES):
        a, b = results.cpu(ours, 16 * smallest), results.cpu(yardstick, 16 * smallest)
        many = metric.replace(" N ", f" {16 * smallest:,} ")
        yield (many[0].upper() + many[1:], time_text(a), f"{time_text(b)} (plain ones)", f"{a / b:.2f}", "", "")
    for metric, counter, exact in COUNTERS if results.has("SwitchTheme/velmora") else ():
        value = max(results.counter(f"SwitchTheme/velmora/{n}", counter) for n in (250, 1000, 4000))
        yield (metric, f"{value:g}", "", "", str(exact), "met" if value == exact else "**not met**")
    growths = [(*growth, GROWTH_AIM) for growth in GROWTHS] + [(*beside, BESIDE_AIM) for beside in BESIDES]
    for metric, ours, yardstick, smallest, aim in filter(lambda row: results.has(row[1], row[2]), growths):
        def growth(name, n=smallest):
            return results.cpu(name, 16 * n) / results.cpu(name, n)
        own = growth(ours)
        beside = f"{growth(yardstick):.1f}" if yardstick else ""
        yield (f"Growth, {metric}, N = {smallest:,} to 16N", f"{own:.1f}", beside, "", *verdict(own, aim))


def main():
    parser = argparse.ArgumentParser(description="Runs the benchmarks and prints their ratios as one table.")
    parser.add_argument("program", help="the built velmora_benchmarks")
    parser.add_argument("--repetitions", type=int, default=7)
    parser.add_argument("--min-time", type=float, default=0.02, help="seconds for each repetition")
    parser.add_argument("--only", default="", metavar="PATTERN", help="those that are compared with a benchmark of such a name")
    parser.add_argument("--json", help="keep the raw results in this file")
    arguments = parser.parse_args()

    document = run(arguments.program, arguments.repetitions, arguments.min_time, arguments.only)
    if arguments.json:
        with open(arguments.json, "w", encoding="utf-8") as copy:
            json.dump(document, copy, indent=1)

    print("| Metric | Ours | Yardstick | Ratio | Aim | |")
    print("|---|--:|--:|--:|--:|---|")
    for row in table_rows(Results(document)):
        print("| " + " | ".join(row) + " |")
    return 0


if __name__ == "__main__":
    sys.exit(main())
