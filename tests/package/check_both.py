"""Installs the kits for Qt 5 and for Qt 6 into one prefix, as packages do, and lets projects of either Qt find their own.

check_both.py CMAKE CXX SOURCES FOLDER BUILD_OF_QT5 BUILD_OF_QT6
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys

cmake, cxx, sources, folder, *builds = sys.argv[1:]
sources, folder = pathlib.Path(sources), pathlib.Path(folder)
shutil.rmtree(folder, ignore_errors=True)
prefixes = {"5": folder / "5", "6": folder / "6"}
faults = []


def files(prefix):
    return {path.relative_to(prefix) for path in prefix.rglob("*") if not path.is_dir()}


for build, prefix in zip(builds, prefixes.values()):
    if subprocess.run([cmake, "--install", build, "--prefix", prefix], stdout=subprocess.DEVNULL).returncode != 0:
        sys.exit(f"the kit of {build} is to be installed beside the other one: build it first")
    shutil.copytree(prefix, folder / "both", dirs_exist_ok=True, symlinks=True)
faults += [f"both kits install {file}" for file in sorted(files(prefixes["5"]) & files(prefixes["6"]))]


def configure(project, prefix, *options):
    run = subprocess.run(
        [cmake, "-G", "Ninja", "--fresh", "-S", sources / project, "-B", folder / "build", f"-DCMAKE_CXX_COMPILER={cxx}",
         f"-DCMAKE_PREFIX_PATH={prefix}", "-DINSTALLED=5;6", *options], capture_output=True, text=True)
    return run.returncode, re.sub(r"\s+", " ", run.stdout + run.stderr)


status, told = configure("choice", folder / "both", "-DKITS=5;6")
if status != 0:
    faults.append(told)
for kit, qt in (("5", "6"), ("6", "5")):
    status, told = configure("wrong", prefixes[kit], f"-DWRONG_QT={qt}")
    if status == 0 or f"for Qt {kit}, while this project has found Qt {qt} alone: install Velmora for Qt {qt}" not in told:
        faults.append(f"a project of Qt {qt} with the kit for Qt {kit} ends with {status}: {told}")

# Headers that are found by a wrong folder say so before anything else.
header = folder / "header.cpp"
header.write_text("#include <Velmora/QcPrimaryButton.h>\n")
for kit, qt, include in (("5", "6", "include"), ("6", "5", "include/velmora-qt6")):
    flags = subprocess.run(["pkg-config", "--cflags", f"Qt{qt}Widgets"], check=True, capture_output=True, text=True).stdout.split()
    run = subprocess.run([cxx, "-std=c++17", "-fPIC", "-fsyntax-only", "-I", folder / "both" / include, *flags, header],
                         capture_output=True, text=True, env={**os.environ, "LC_ALL": "C.UTF-8"})
    first = next(iter(re.findall(r"error: (.*)", run.stderr)), "")
    if f"This header is of Velmora for Qt {kit}, and the program is compiled with Qt {qt}." not in first:
        faults.append(f"the header of the kit for Qt {kit} says to Qt {qt}: {first!r}")

print("\n".join(faults))
sys.exit(1 if faults else 0)
