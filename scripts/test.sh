#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is missing, builds with warnings as errors, runs a short smoke run of each
# fuzz target under AddressSanitizer and UndefinedBehaviorSanitizer, then every test; then every
# test once more in a build with those sanitizers (TOLVANE_SANITIZE_TESTS=0 leaves that out).
# No display is set for the tests: each label brings what it needs, and `unit` needs none.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
jobs=$(nproc)

cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTOLVANE_WERROR=ON
cmake --build build -j"$jobs"

fuzz_seconds=${TOLVANE_FUZZ_SECONDS:-15}
CC=clang CXX=clang++ cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTOLVANE_FUZZ=ON -DTOLVANE_WERROR=ON
cmake --build build-fuzz -j"$jobs" --target fuzz_vault_reader fuzz_decode64 fuzz_ini
for target in fuzz_vault_reader fuzz_decode64 fuzz_ini; do
    # New finds go to the build's folder; the kept corpus is read, not changed.
    corpus="build-fuzz/corpus/$target"
    mkdir -p "$corpus"
    echo "Fuzzing $target for ${fuzz_seconds}s"
    build-fuzz/tests/fuzz/$target -max_total_time="$fuzz_seconds" -max_len=40000 -print_final_stats=0 \
        "$corpus" "scripts/fuzz-corpus/$target" 2>&1 | tail -n 3
    [ "${PIPESTATUS[0]}" -eq 0 ] || { echo "$target found a failure"; exit 1; }
done

(cd build && ctest --output-on-failure -j"$jobs")

if [ "${TOLVANE_SANITIZE_TESTS:-1}" != 0 ]; then
    cmake -S . -B build-sanitize -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTOLVANE_SANITIZE=ON -DTOLVANE_WERROR=ON
    cmake --build build-sanitize -j"$jobs"
    # The package and the journey through it test the packaging, which the sanitized build adds
    # nothing to; every other test runs.
    (cd build-sanitize && UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1 \
        ASAN_OPTIONS=detect_leaks=0 ctest --output-on-failure -j"$jobs" -LE package)
fi
