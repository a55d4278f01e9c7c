#!/usr/bin/env bash
# test.sh [STEP...]: installs what is missing, builds and runs all tests, or the steps named:
#
#   format   clang-format has nothing to change
#   dev      every test: unit and package tests, the fuzz targets' seeds, and the desktop tests under a window manager
#   dev6     the same with Qt 6, but for what tests no code twice
#   asan     those of dev at scale 1 under the address and undefined-behaviour sanitizers, without package and desktop tests and what compares
#            pictures alone
#   tsan     what uses threads, under the thread sanitizer
#   docs     the API reference, in which a warning is an error
#
# Left out, because it takes long or must be looked at:
#
#   fuzzing           VELMORA_FUZZ=3600 scripts/test.sh fuzz: so many seconds of each target's search, under the sanitizers (needs clang)
#   docking           VELMORA_MONKEY=100000 scripts/test.sh monkey: so many random operations, and damaged layouts, under the sanitizers
#   coverage          cmake --preset coverage && cmake --build --preset coverage --target coverage
#   clang-tidy        scripts/tidy.sh
#   a fresh machine   scripts/try_fresh_machine.sh
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/help.sh"
cd "$(dirname "${BASH_SOURCE[0]}")/.."

steps=("$@")
[ ${#steps[@]} -gt 0 ] || steps=(format dev dev6 asan tsan docs)

# Chains of &&: a step's result is tested, and there the shell does not stop at a failing command by itself.
build_and_test() {
    cmake --preset "$1" --log-level=WARNING && cmake --build --preset "$1" && ctest --preset "$1" --parallel "$(nproc)"
}
format() { scripts/format.sh --check; }
dev() { build_and_test dev; }
dev6() { build_and_test dev6; }
asan() { build_and_test asan; }
monkey() {
    cmake --preset asan --log-level=WARNING && cmake --build --preset asan --target tst_DockMonkey tst_DockMutations || return
    export QTEST_FUNCTION_TIMEOUT=3600000 QT_QPA_PLATFORM=offscreen QT_FONT_DPI=96 LC_ALL=C.UTF-8 VELMORA_MONKEY="${VELMORA_MONKEY:-100000}"
    export LSAN_OPTIONS="suppressions=$PWD/tests/support/lsan.supp:print_suppressions=0" UBSAN_OPTIONS=print_stacktrace=1
    build/asan/tests/dock/tst_DockMutations -maxwarnings 0 && build/asan/tests/dock/tst_DockMonkey -maxwarnings 0
}
fuzz() {
    scripts/install_packages.sh develop && build_and_test fuzz || return
    export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 UBSAN_OPTIONS=print_stacktrace=1
    local seeds name
    for seeds in tests/fuzz/corpus/*; do
        name=$(basename "$seeds")
        mkdir -p "build/fuzz/found/$name"
        build/fuzz/tests/fuzz/fuzz_"$name" -timeout=5 -rss_limit_mb=2048 -detect_leaks=0 -max_len=16384 -max_total_time="${VELMORA_FUZZ:-60}" \
            -print_final_stats=1 -artifact_prefix="build/fuzz/found/$name." "build/fuzz/found/$name" "$seeds" || return
    done
}
tsan() { build_and_test tsan; }
docs() { cmake --preset dev --log-level=WARNING && cmake --build --preset dev --target docs; }

for step in "${steps[@]}"; do
    declare -F "$step" >/dev/null || { echo "test.sh: no step named $step" >&2; exit 2; }
done
sets=(build build5 test test5 designer5 docs)
[[ " ${steps[*]} " != *" dev6 "* ]] || sets+=(build6 test6 designer6)
scripts/install_packages.sh "${sets[@]}"
summary=""
for step in "${steps[@]}"; do
    echo "== $step"
    SECONDS=0
    "$step" || { echo "== $step FAILED after $SECONDS s" >&2; exit 1; }
    summary+=$(printf '%-8s passed in %d s' "$step" "$SECONDS")$'\n'
done
echo "== All steps passed"
printf '%s' "$summary"
