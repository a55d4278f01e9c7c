#!/usr/bin/env bash
# lay_out_control.sh PYTHON README FOLDER FILE...: makes a host of the README's control and a program that looks at it, and makes
# the README's colour table by the README's command.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
"$1" "$here/extract_programs.py" --with-additions "${@:2}"
cp "$here/control/main.cpp" "$3/main.cpp"
cd "$3"
rm -f my_colors.ini
sh -e my_colors.sh
