#!/usr/bin/env bash
# build_with_qmake.sh QMAKE SOURCES FOLDER HEADER: builds the project host.pro in FOLDER and runs it, with HEADER included into it.
set -euo pipefail
rm -rf "$3"
mkdir -p "$3"
cd "$3"
"$1" "$2/host.pro" "QMAKE_CXX=$CXX" "QMAKE_LINK=$CXX" "QMAKE_CXXFLAGS+=-include $4"
make --silent
./host
