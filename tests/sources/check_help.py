"""Runs every script with --help, where it finds nothing to build or install with: it must answer, and do nothing else.

check_help.py SCRIPTS_FOLDER
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

TOOLS = ("bash", "env", "dirname", "sed", "python3")
SECONDS = 20


def fault_of(script, path):
    try:
        run = subprocess.run([script, "--help"], env={"PATH": path}, stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=SECONDS)
    except subprocess.TimeoutExpired:
        return f"took longer than {SECONDS} s"
    if run.returncode != 0 or run.stderr:
        return f"exit status {run.returncode}, {run.stderr.strip()}"
    if script.name not in run.stdout.splitlines()[0]:
        return f"does not begin with its name, but with: {run.stdout.splitlines()[:1]}"
    return ""


with tempfile.TemporaryDirectory() as folder:
    for tool in TOOLS:
        os.symlink(shutil.which(tool), os.path.join(folder, tool))
    scripts = [file for file in sorted(pathlib.Path(sys.argv[1]).iterdir()) if os.access(file, os.X_OK) and file.is_file()]
    faults = {script.name: fault_of(script, folder) for script in scripts}
if not faults:
    sys.exit(f"no script in {sys.argv[1]}")
for name, fault in faults.items():
    if fault:
        print(f"{name} --help: {fault}")
sys.exit(1 if any(faults.values()) else 0)
