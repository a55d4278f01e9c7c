#!/usr/bin/env bash
# Formats every C++ file with clang-format; with --check, lists what it would change and fails if there is any.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

mode=(-i)
[ "${1:-}" != --check ] || mode=(--dry-run --Werror)
git ls-files -z -- '*.h' '*.cpp' | xargs -0 clang-format "${mode[@]}" --
