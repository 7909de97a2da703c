#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Takes the screenshots of docs/screenshots/ anew: the vault window, the settings window and
# the password generator at 100 % and 200 % scale, on a private X server with a tray host (with
# a notification area the tray's menu stays out of the menu bar).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build -j"$(nproc)" --target tst_screenshots
mkdir -p docs/screenshots
home=$(mktemp -d)
exec 3< <(exec Xvfb -displayfd 1 -noreset -screen 0 1280x1024x24 -nolisten tcp)
xvfb=$!
read -r display <&3
export DISPLAY=":$display"
trayer --align right --widthtype request &
tray=$!
trap 'kill $tray $xvfb; rm -rf "$home"' EXIT
for _ in $(seq 50); do xdotool search --class trayer >/dev/null 2>&1 && break; sleep 0.2; done
HOME="$home" TOLVANE_SCREENSHOTS_DIR="$PWD/docs/screenshots" QT_QPA_PLATFORM=xcb build/tests/tst_screenshots
