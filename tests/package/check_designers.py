"""Makes all packages for both Qt, unpacks them into one tree, and has each Qt's Designer and QUiLoader use its own plugin there.

check_designers.py CMAKE CPACK CXX SOURCES FORM FOLDER BUILD_OF_QT5 BUILD_OF_QT6

FORM is a .ui file with controls of the kit.
"""
import os
import pathlib
import re
import select
import shutil
import subprocess
import sys
import time
import xml.etree.ElementTree

cmake, cpack, cxx, sources, form, folder, *builds = sys.argv[1:]
folder = pathlib.Path(folder)
shutil.rmtree(folder, ignore_errors=True)
root = folder / "root"
NAMES = {"5": {"velmora-designer", "libvelmora1", "libvelmora-dev"}, "6": {"velmora-designer-qt6", "libvelmora-qt6-1", "libvelmora-qt6-dev"}}
PLUGIN = "libVelmoraDesigner.so"
STARTS_WITHIN = 120
faults = []


def unpack(qt, build):
    """The files of a build's packages, which are then in the tree."""
    made = folder / qt
    subprocess.run([cpack, "--config", f"{build}/CPackConfig.cmake", "-B", made, "-D", "CPACK_COMPONENTS_ALL=Runtime;Development;Designer"], check=True,
                   stdout=subprocess.DEVNULL)
    packages = {package.name.split("_")[0]: package for package in made.glob("*.deb")}
    if set(packages) != NAMES[qt]:
        sys.exit(f"the packages for Qt {qt} are {sorted(packages)}")
    files = set()
    for package in packages.values():
        unpacked = made / package.stem
        subprocess.run(["dpkg-deb", "-x", package, unpacked], check=True)
        files |= {path.relative_to(unpacked) for path in unpacked.rglob("*") if not path.is_dir()}
        shutil.copytree(unpacked, root, dirs_exist_ok=True, symlinks=True)
    return files


files = {qt: unpack(qt, build) for qt, build in zip(NAMES, builds)}
faults += [f"packages for both Qt have {file}" for file in sorted(files["5"] & files["6"])]
plugins = {qt: next(root / file for file in files[qt] if file.name == PLUGIN) for qt in NAMES}
library = next(root / file for file in files["5"] if file.name.startswith("libVelmora.so"))
# Each Qt is shown both plugins, the other's first: it takes its own.
environment = {**os.environ, "HOME": str(folder), "LD_LIBRARY_PATH": str(library.parent)}


def environment_of(qt):
    other = next(name for name in NAMES if name != qt)
    return {**environment, "QT_PLUGIN_PATH": f"{plugins[other].parent.parent}:{plugins[qt].parent.parent}"}


def cached(build, name):
    cache = pathlib.Path(build, "CMakeCache.txt").read_text(encoding="utf-8")
    return re.search(rf"^{name}:\w+=(.*)$", cache, re.MULTILINE).group(1)


def classes_of_form():
    for widget in xml.etree.ElementTree.parse(form).iter("widget"):
        if widget.get("class").startswith("Velmora::"):
            yield f"{widget.get('name')}: {widget.get('class')}"


def check_loader(qt):
    build = folder / f"loader{qt}"
    for step in (["-G", "Ninja", "-S", f"{sources}/loader", "-B", build, f"-DCMAKE_CXX_COMPILER={cxx}", f"-DVELMORA_QT={qt}"],
                 ["--build", build]):
        run = subprocess.run([cmake, *step], capture_output=True, text=True)
        if run.returncode != 0:
            sys.exit(run.stdout + run.stderr)
    run = subprocess.run([build / "loader", form], env=environment_of(qt), capture_output=True, text=True)
    told = set(run.stdout.split("\n"))
    faults.extend(f"the loader of Qt {qt} made no {entry}" for entry in classes_of_form() if entry not in told)
    if run.returncode != 0:
        faults.append(f"the loader of Qt {qt} ended with {run.returncode}: {run.stderr}")
    return {line.split(" ", 1)[1] for line in told if line.startswith("plugins: ")}


def check_place(qt, looked_in):
    """A release lays the plugin where its Qt looks without being told."""
    preset = "release" if qt == "5" else "release6"
    build = folder / preset
    run = subprocess.run([cmake, "--preset", preset, "-B", build, f"-DCMAKE_CXX_COMPILER={cxx}"], cwd=f"{sources}/../..",
                         capture_output=True, text=True)
    if run.returncode != 0:
        sys.exit(run.stdout + run.stderr)
    place = "/usr/" + cached(build, "VELMORA_DESIGNER_DIR")
    if os.path.dirname(place) not in looked_in:
        faults.append(f"a release for Qt {qt} has the plugin in {place}, which is in none of {sorted(looked_in)}")


def check_designer(qt, build):
    """Designer tells which plugins it loads, and is ended then."""
    process = subprocess.Popen([cached(build, "VELMORA_DESIGNER_PROGRAM"), form], env={**environment_of(qt), "QT_DEBUG_PLUGINS": "1"}, stdin=subprocess.DEVNULL,
                               stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    told = b""
    end = time.monotonic() + STARTS_WITHIN
    loaded = None
    while not loaded and time.monotonic() < end and process.poll() is None:
        if select.select([process.stderr], [], [], 1)[0]:
            told += os.read(process.stderr.fileno(), 65536)
        loaded = re.search(rf'^.*"{re.escape(str(plugins[qt]))}".*loaded library|^.*loaded library.*"{re.escape(str(plugins[qt]))}"'.encode(),
                           told, re.MULTILINE)
    process.kill()
    process.wait()
    if not loaded:
        lines = [line for line in told.decode(errors="replace").split("\n") if PLUGIN in line]
        faults.append(f"Designer of Qt {qt} did not load {plugins[qt]}: " + "; ".join(lines))


for qt, build in zip(NAMES, builds):
    check_place(qt, check_loader(qt))
    check_designer(qt, build)
print("\n".join(faults))
sys.exit(1 if faults else 0)
