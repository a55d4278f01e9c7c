#!/usr/bin/env bash
# tidy.sh [SOURCE...]: runs clang-tidy over the library and the examples, or over the sources named. About three seconds of processor time a source.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/help.sh"
cd "$(dirname "${BASH_SOURCE[0]}")/.."

sources=("$@")
[ ${#sources[@]} -gt 0 ] || mapfile -t sources < <(git ls-files -- 'src/*.cpp' 'examples/*.cpp')
cmake --preset dev --log-level=WARNING
# The mocs that sources include are made by a build.
cmake --build --preset dev --target VelmoraObjects_autogen >/dev/null
printf '%s\0' "${sources[@]}" | xargs -0 -n 1 -P "$(nproc)" clang-tidy -p build/dev --quiet
