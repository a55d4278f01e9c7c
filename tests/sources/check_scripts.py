"""Runs scripts/gallery.sh and scripts/test.sh in a tree where nothing is missing, built or shown, and compares what they would have done.

check_scripts.py SCRIPTS_FOLDER
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

TOOLS = ("bash", "env", "dirname", "sed", "awk", "id", "mkdir", "mktemp", "rm", "find", "wc", "nproc")
# What is run writes its name and arguments into a file. No package is missing.
STAND_IN = '#!/bin/sh\necho "${0##*/} $*" >>"$RUN_LOG"\n'
DPKG_QUERY = STAND_IN + "printf installed\n"

faults = []


def script(path, text):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text)
    path.chmod(0o755)


def run(name, *arguments, **environment):
    """The exit status, what was said, and the lines of what was run."""
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        shutil.copytree(sys.argv[1], root / "scripts")
        for tool in TOOLS:
            (root / "bin").mkdir(exist_ok=True)
            os.symlink(shutil.which(tool), root / "bin" / tool)
        for tool in ("cmake", "ctest", "git", "xargs"):
            script(root / "bin" / tool, STAND_IN)
        script(root / "bin/dpkg-query", DPKG_QUERY)
        for preset in ("release", "release6"):
            script(root / f"build/{preset}/examples/gallery/gallery", STAND_IN.replace("${0##*/}", preset))
        log = root / "log"
        log.touch()
        done = subprocess.run([root / "scripts" / name, *arguments], stdin=subprocess.DEVNULL, capture_output=True, text=True,
                              env={"PATH": str(root / "bin"), "RUN_LOG": str(log), **environment})
        return done.returncode, done.stdout + done.stderr, [line.replace(folder, "") for line in log.read_text().splitlines()]


def expect(what, is_so, found):
    if not is_so:
        faults.append(f"{what}, but: {found}")


def packages(lines):
    return [line.split()[-1] for line in lines if line.startswith("dpkg-query ")]


def is_of(qt, package):
    return re.search(r"qt(base|tools|svg|wayland)?5|libqt5", package) if qt == "5" else re.search(r"qt6", package)


for arguments, qt, preset, pictures in (
    ((), "5", "release", "/build/gallery"),
    (("--qt", "5"), "5", "release", "/build/gallery"),
    (("--qt", "6"), "6", "release6", "/build/gallery-qt6"),
    (("--qt=6",), "6", "release6", "/build/gallery-qt6"),
):
    for environment in ({}, {"WAYLAND_DISPLAY": "wayland-0"}):
        status, said, lines = run("gallery.sh", "--page", "Push Buttons", *arguments, "--table", "dark", **environment)
        case = f"gallery.sh {' '.join(arguments)} {environment}"
        expect(f"{case} succeeds", status == 0, said)
        asked = packages(lines)
        other = "6" if qt == "5" else "5"
        expect(f"{case} looks for the packages of Qt {qt}", any(is_of(qt, package) for package in asked), asked)
        expect(f"{case} needs none of the other Qt", not any(is_of(other, package) for package in asked), asked)
        expect(f"{case} looks for a platform plugin where it will show", any("wayland" in package for package in asked) == bool(environment), asked)
        expect(f"{case} builds {preset}", [line for line in lines if line.startswith("cmake")]
               == [f"cmake --preset {preset} --log-level=WARNING", f"cmake --build --preset {preset}"], lines)
        given = "--page Push Buttons --table dark"
        shown = [f"{preset} {given}"] if environment else [
            f"{preset} --render {pictures} {given}", f"{preset} --render {pictures}/right-to-left --language ar {given}"]
        expect(f"{case} shows what it is told", [line for line in lines if line.startswith("release")] == shown, lines)

for arguments, value in ((("--qt", "4"), "4"), (("--qt",), ""), (("--qt=",), ""), (("--qt", "--page", "x"), "--page")):
    status, said, lines = run("gallery.sh", *arguments)
    expect(f"gallery.sh {' '.join(arguments)} refuses it and does nothing",
           (status, said, lines) == (2, f'gallery.sh: --qt takes 5 or 6, and not "{value}"\n', []), (status, said, lines))

for steps, presets, wants_qt6 in (
    ((), ["dev", "dev6", "asan", "tsan"], True),
    (("dev",), ["dev"], False),
    (("dev", "dev6"), ["dev", "dev6"], True),
    (("asan", "tsan"), ["asan", "tsan"], False),
):
    status, said, lines = run("test.sh", *steps)
    case = f"test.sh {' '.join(steps)}"
    expect(f"{case} succeeds", status == 0, said)
    expect(f"{case} tests {presets}", [line.split()[2] for line in lines if line.startswith("ctest")] == presets, lines)
    expect(f"{case} {'needs' if wants_qt6 else 'needs nothing of'} Qt 6", any(is_of("6", package) for package in packages(lines)) == wants_qt6, packages(lines))

print("\n".join(faults))
sys.exit(1 if faults else 0)
