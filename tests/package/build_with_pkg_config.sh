#!/usr/bin/env bash
# build_with_pkg_config.sh PACKAGE SOURCE PROGRAM [FLAG...]: compiles, links and runs a host with its own flags and what pkg-config
# says of the package.
set -euo pipefail
read -ra flags <<<"$(pkg-config --cflags --libs "$1 >= 1")"
"$CXX" "${@:4}" "$2" -o "$3" "${flags[@]}"
"$3"
