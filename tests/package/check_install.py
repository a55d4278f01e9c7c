"""Installs the library to a private prefix and compares what lies there with what should.

check_install.py CMAKE SOURCE_DIR BINARY_DIR PREFIX LIBDIR VERSION QT
"""
import pathlib
import re
import shutil
import subprocess
import sys

cmake, source, binary, prefix, libdir, version, qt = sys.argv[1:]
prefix = pathlib.Path(prefix)
major = version.split(".")[0]
name, include, share, pkg_config = {
    "5": ("Velmora", "include", "share/velmora", "Velmora"),
    "6": ("VelmoraQt6", "include/velmora-qt6", "share/velmora-qt6", "Velmora-qt6"),
}[qt]

shutil.rmtree(prefix, ignore_errors=True)
subprocess.run([cmake, "--install", binary, "--prefix", prefix], check=True, stdout=subprocess.DEVNULL)

headers = {h.name for h in pathlib.Path(source, "src").rglob("*.h") if not h.name.endswith("_p.h")}
expected = {f"{include}/Velmora/{header}" for header in headers | {"Velmora.h", "VelmoraExport.h"}}
expected |= {f"{libdir}/{file}" for file in (f"lib{name}.so", f"lib{name}.so.{major}", f"lib{name}.so.{version}")}
expected |= {f"{libdir}/pkgconfig/{pkg_config}.pc"}
expected |= {f"{share}/translations/{ts.stem}.qm" for ts in pathlib.Path(source, "resources/translations").glob("*.ts")}
expected |= {f"{share}/translations/velmora.qm"}
# find_package(Velmora) finds each kind, and find_package(VelmoraQt6) the second.
expected |= {f"{libdir}/cmake/{name}/{package}{file}.cmake" for package in {"Velmora", name} for file in ("Config", "ConfigVersion")}
expected |= {f"{libdir}/cmake/{name}/{file}.cmake" for file in ("VelmoraVersion", "VelmoraTargets", "VelmoraTargets-?")}


def plain(path):
    """The name, without the build type or the fonts' source, which differ from builder to builder."""
    name = str(path.relative_to(prefix))
    return re.sub(r"VelmoraTargets-\w+\.cmake$", "VelmoraTargets-?.cmake", name)


found = {plain(p) for p in prefix.rglob("*") if not p.is_dir()}
found -= {file for file in found if file.endswith("/plugins/designer/libVelmoraDesigner.so")} # where Designer's libraries are
doc = share.replace("share/", "share/doc/")
licences = {file for file in found if file.startswith(f"{doc}/")}
faults = [f"missing: {file}" for file in sorted(expected - found)]
faults += [f"unexpected: {file}" for file in sorted(found - licences - expected)]
if not licences:
    faults.append(f"missing: the fonts' licences in {doc}")

library = prefix / libdir / f"lib{name}.so"
dynamic = subprocess.run(["objdump", "-p", library], check=True, capture_output=True, text=True).stdout
if not re.search(rf"SONAME\s+lib{name}\.so\.{major}\n", dynamic):
    faults.append(f"the soname is not lib{name}.so.{major}")

umbrella = (prefix / include / "Velmora/Velmora.h").read_text()
faults += [f"Velmora.h lacks {header}" for header in sorted(headers) if f"#include <Velmora/{header}>" not in umbrella]


def leads_to_guard(header):
    """Whether the header tells a program of the wrong Qt; what includes nothing of Qt has no need to."""
    text = (prefix / include / "Velmora" / header).read_text()
    ours = re.findall(r'^#include <Velmora/([\w.]+)>', text, re.MULTILINE)
    return "VelmoraExport.h" in ours or any(map(leads_to_guard, ours)) or not re.search(r"^#include <Q", text, re.MULTILINE)


faults += [f"{header} compiles with another Qt, for it does not include VelmoraExport.h" for header in sorted(headers) if not leads_to_guard(header)]
for file in prefix.rglob("*"):
    if file.suffix in (".h", ".cmake", ".pc") and (source in file.read_text() or str(prefix) in file.read_text()):
        faults.append(f"{plain(file)} names a folder of this machine")

print("\n".join(faults))
sys.exit(1 if faults else 0)
