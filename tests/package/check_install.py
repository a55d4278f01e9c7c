"""Installs the library to a private prefix and compares what lies there with what should.

check_install.py CMAKE SOURCE_DIR BINARY_DIR PREFIX LIBDIR VERSION
"""
import pathlib
import re
import shutil
import subprocess
import sys

cmake, source, binary, prefix, libdir, version = sys.argv[1:]
prefix = pathlib.Path(prefix)
major = version.split(".")[0]

shutil.rmtree(prefix, ignore_errors=True)
subprocess.run([cmake, "--install", binary, "--prefix", prefix], check=True, stdout=subprocess.DEVNULL)

headers = {h.name for h in pathlib.Path(source, "src").rglob("*.h") if not h.name.endswith("_p.h")}
expected = {f"include/Velmora/{name}" for name in headers | {"Velmora.h", "VelmoraExport.h"}}
expected |= {f"{libdir}/{name}" for name in ("libVelmora.so", f"libVelmora.so.{major}", f"libVelmora.so.{version}")}
expected |= {f"{libdir}/pkgconfig/Velmora.pc"}
expected |= {f"share/velmora/translations/{ts.stem}.qm" for ts in pathlib.Path(source, "resources/translations").glob("*.ts")}
expected |= {"share/velmora/translations/velmora.qm"}
expected |= {
    f"{libdir}/cmake/Velmora/{name}.cmake" for name in ("VelmoraConfig", "VelmoraConfigVersion", "VelmoraTargets", "VelmoraTargets-?")
}


def plain(path):
    """The name, without the build type or the fonts' source, which differ from builder to builder."""
    name = str(path.relative_to(prefix))
    return re.sub(r"VelmoraTargets-\w+\.cmake$", "VelmoraTargets-?.cmake", name)


found = {plain(p) for p in prefix.rglob("*") if not p.is_dir()}
found -= {name for name in found if name.endswith("/plugins/designer/libVelmoraDesigner.so")} # where Designer's libraries are
licences = {name for name in found if name.startswith("share/doc/velmora/")}
faults = [f"missing: {name}" for name in sorted(expected - found)]
faults += [f"unexpected: {name}" for name in sorted(found - licences - expected)]
if not licences:
    faults.append("missing: the fonts' licences in share/doc/velmora")

library = prefix / libdir / "libVelmora.so"
dynamic = subprocess.run(["objdump", "-p", library], check=True, capture_output=True, text=True).stdout
if not re.search(rf"SONAME\s+libVelmora\.so\.{major}\n", dynamic):
    faults.append(f"the soname is not libVelmora.so.{major}")

umbrella = (prefix / "include/Velmora/Velmora.h").read_text()
faults += [f"Velmora.h lacks {name}" for name in sorted(headers) if f"#include <Velmora/{name}>" not in umbrella]
for file in prefix.rglob("*"):
    if file.suffix in (".h", ".cmake", ".pc") and (source in file.read_text() or str(prefix) in file.read_text()):
        faults.append(f"{plain(file)} names a folder of this machine")

print("\n".join(faults))
sys.exit(1 if faults else 0)
