#!/usr/bin/env bash
# Takes the screenshots of docs/screenshots/ anew: the vault window, the settings window and
# the password generator at 100 % and 200 % scale, on a private X server with a tray host.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build -j"$(nproc)" --target tst_screenshots_xvfb
mkdir -p docs/screenshots
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
HOME="$home" TOLVANE_SCREENSHOTS_DIR="$PWD/docs/screenshots" QT_QPA_PLATFORM=offscreen \
    build/tests/tst_screenshots_xvfb
