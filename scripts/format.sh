#!/usr/bin/env bash
# format.sh [--check]: formats every C++ file with clang-format; with --check, lists what it would change and fails if there is any.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/help.sh"
cd "$(dirname "${BASH_SOURCE[0]}")/.."

mode=(-i)
[ "${1:-}" != --check ] || mode=(--dry-run --Werror)
git ls-files -z -- '*.h' '*.cpp' | xargs -0 clang-format "${mode[@]}" --
