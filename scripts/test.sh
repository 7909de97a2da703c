#!/usr/bin/env bash
# Installs what is missing, builds with warnings as errors, runs a short smoke run of each
# fuzz target under AddressSanitizer and UndefinedBehaviorSanitizer, then every test.
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
    corpus="build-fuzz/corpus/$target"
    mkdir -p "$corpus"
    echo "Fuzzing $target for ${fuzz_seconds}s"
    build-fuzz/src/fuzz/$target -max_total_time="$fuzz_seconds" -max_len=40000 -print_final_stats=0 \
        "$corpus" 2>&1 | tail -n 3
    [ "${PIPESTATUS[0]}" -eq 0 ] || { echo "$target found a failure"; exit 1; }
done

cd build
QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j"$jobs"
