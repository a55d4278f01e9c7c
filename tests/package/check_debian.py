"""Makes the Debian packages and looks into them.

check_debian.py CPACK CONFIG FOLDER VERSION
"""
import pathlib
import re
import shutil
import subprocess
import sys

cpack, config, folder, version = sys.argv[1:]
major = version.split(".")[0]

shutil.rmtree(folder, ignore_errors=True)
subprocess.run([cpack, "--config", config, "-B", folder], check=True, stdout=subprocess.DEVNULL)
packages = {p.name.split("_")[0]: p for p in pathlib.Path(folder).glob("*.deb")}
runtime, development = f"libvelmora{major}", "libvelmora-dev"
designer = next((packages.pop(name) for name in list(packages) if name.startswith("velmora-designer")), None) # with Designer's libraries
if set(packages) != {runtime, development}:
    sys.exit(f"not the two packages, but {sorted(packages)}")

faults = []


def dpkg(option, name, *fields):
    return subprocess.run(["dpkg-deb", option, packages[name], *fields], check=True, capture_output=True, text=True).stdout


def expect(name, what, text, *patterns):
    faults.extend(f"{name}: {what} without {pattern}" for pattern in patterns if not re.search(pattern, text, re.MULTILINE))


def refuse(name, what, text, *patterns):
    faults.extend(f"{name}: {what} with {pattern}" for pattern in patterns if re.search(pattern, text, re.MULTILINE))


for name in packages:
    expect(name, "control file", dpkg("--field", name), rf"^Version: {re.escape(version)}$", r"^Maintainer: .+", r"^Description: .+")

expect(runtime, "dependencies", dpkg("--field", runtime, "Depends"), r"\blibqt5widgets5\b", r"\blibqt5svg5\b", r"\blibc6\b")
expect(runtime, "content", dpkg("--contents", runtime), rf"/libVelmora\.so\.{major} -> ", r"/share/doc/velmora/",
       r"/usr/share/velmora/translations/velmora_de\.qm$", r"/usr/share/velmora/translations/velmora\.qm$")
refuse(runtime, "content", dpkg("--contents", runtime), r"/include/", r"\.cmake$", r"/libVelmora\.so ->")

expect(development, "dependencies", dpkg("--field", development, "Depends"), rf"{runtime} \(= {re.escape(version)}\)", r"\bqtbase5-dev\b")
expect(development, "content", dpkg("--contents", development),
       r"/usr/include/Velmora/Velmora\.h$", r"/VelmoraConfig\.cmake$", r"/Velmora\.pc$", r"/libVelmora\.so -> ")
refuse(development, "content", dpkg("--contents", development), r"_p\.h$", r"/libVelmora\.so\.[0-9.]+$")

if designer:
    packages["designer"] = designer
    expect("designer", "dependencies", dpkg("--field", "designer", "Depends"), rf"{runtime} \(= {re.escape(version)}\)", r"\blibqt[56]designer[56]\b")
    expect("designer", "content", dpkg("--contents", "designer"), r"/plugins/designer/libVelmoraDesigner\.so$")

print("\n".join(faults))
sys.exit(1 if faults else 0)
