#!/usr/bin/env bash
# Runs the programs of the guide to spreadsheets, which lie in FOLDER, with the library that pkg-config finds and the fill-template of
# PROGRAMS, and reads the printed invoices.
#
# usage: try_spreadsheets.sh FOLDER PROGRAMS
set -euo pipefail
export PATH="$2:$PATH"

cd "$1"
rm -f ./*.xlsx ./*.pdf
/usr/bin/python3 make_invoice.py
# shellcheck disable=SC2046
"${CXX:-c++}" -std=c++17 -fPIC -o smallest main.cpp $(pkg-config --cflags --libs Velmora)
./smallest
sh -eu fill.sh | grep '^Items .*Invoice!\$A\$5:\$D\$5' >/dev/null # all of it, not -q: what writes into a pipe that ended fails

export HOME="$PWD/home" # of LibreOffice's settings
mkdir -p "$HOME"
for number in 17 18; do
    sed "s/invoice-17/invoice-$number/" to_pdf.sh | sh -eu
    text=$(pdftotext -layout "invoice-$number.pdf" -)
    for line in 'Customer +ACME Ltd' 'Date +[0-9-]+' 'Chair +4 +12[.]50 +50[.]00' 'Desk, oak +1 +300[.]00 +300[.]00' 'Total +350[.]00'; do
        grep -Eq "$line" <<< "$text" || { echo "invoice-$number.pdf lacks: $line"; echo "$text"; exit 1; }
    done
done
