"""Makes the Debian packages and looks into them.

check_debian.py CPACK CONFIG FOLDER VERSION QT
"""
import pathlib
import re
import shutil
import subprocess
import sys

cpack, config, folder, version, qt = sys.argv[1:]
major = version.split(".")[0]

shutil.rmtree(folder, ignore_errors=True)
subprocess.run([cpack, "--config", config, "-B", folder], check=True, stdout=subprocess.DEVNULL)
packages = {p.name.split("_")[0]: p for p in pathlib.Path(folder).glob("*.deb")}
runtime, development, name, pkg_config, include, share, libraries, qt_development = {
    "5": (f"libvelmora{major}", "libvelmora-dev", "Velmora", "Velmora", "include", "velmora", (r"\blibqt5widgets5\b", r"\blibqt5svg5\b"),
          r"\bqtbase5-dev\b"),
    "6": (f"libvelmora-qt6-{major}", "libvelmora-qt6-dev", "VelmoraQt6", "Velmora-qt6", "include/velmora-qt6", "velmora-qt6",
          (r"\blibqt6widgets6\b", r"\blibqt6svg6\b"), r"\bqt6-base-dev\b"),
}[qt]
designer = packages.pop("velmora-designer" + ("" if qt == "5" else "-qt6"), None) # where Designer's library is
if set(packages) != {runtime, development}:
    sys.exit(f"not the two packages, but {sorted(packages)}")

faults = []


def dpkg(option, name, *fields):
    return subprocess.run(["dpkg-deb", option, packages[name], *fields], check=True, capture_output=True, text=True).stdout


def expect(name, what, text, *patterns):
    faults.extend(f"{name}: {what} without {pattern}" for pattern in patterns if not re.search(pattern, text, re.MULTILINE))


def refuse(name, what, text, *patterns):
    faults.extend(f"{name}: {what} with {pattern}" for pattern in patterns if re.search(pattern, text, re.MULTILINE))


for package in packages:
    expect(package, "control file", dpkg("--field", package), rf"^Version: {re.escape(version)}$", r"^Maintainer: .+", r"^Description: .+")

expect(runtime, "dependencies", dpkg("--field", runtime, "Depends"), *libraries, r"\blibc6\b")
expect(runtime, "content", dpkg("--contents", runtime), rf"/lib{name}\.so\.{major} -> ", rf"/share/doc/{share}/",
       rf"/usr/share/{share}/translations/velmora_de\.qm$", rf"/usr/share/{share}/translations/velmora\.qm$")
refuse(runtime, "content", dpkg("--contents", runtime), r"/include/", r"\.cmake$", rf"/lib{name}\.so ->")

expect(development, "dependencies", dpkg("--field", development, "Depends"), rf"{runtime} \(= {re.escape(version)}\)", qt_development)
expect(development, "content", dpkg("--contents", development),
       rf"/usr/{include}/Velmora/Velmora\.h$", rf"/{name}Config\.cmake$", rf"/{pkg_config}\.pc$", rf"/lib{name}\.so -> ")
refuse(development, "content", dpkg("--contents", development), r"_p\.h$", rf"/lib{name}\.so\.[0-9.]+$")

if designer:
    packages["designer"] = designer
    expect("designer", "dependencies", dpkg("--field", "designer", "Depends"), rf"{runtime} \(= {re.escape(version)}\)", rf"\blibqt{qt}designer{qt}\b")
    expect("designer", "content", dpkg("--contents", "designer"), rf"/qt{qt}/plugins/designer/libVelmoraDesigner\.so$")

print("\n".join(faults))
sys.exit(1 if faults else 0)
