#!/usr/bin/env bash
# build_with_pkg_config.sh SOURCE PROGRAM [FLAG...]: compiles, links and runs a host with its own flags and what pkg-config says.
set -euo pipefail
read -ra flags <<<"$(pkg-config --cflags --libs 'Velmora >= 1')"
"$CXX" "${@:3}" "$1" -o "$2" "${flags[@]}"
"$2"
