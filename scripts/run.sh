#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is missing, builds, and starts Tolvane from its program folder on a data tree
# of its own under .run/ (fresh at the first run; kept between runs, delete .run/ to start over).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build -j"$(nproc)"
run="$PWD/.run"
mkdir -p "$run/appdata" "$run/registry" "$run/machine-registry"
export TOLVANE_APPDATA="$run/appdata"
export TOLVANE_REGISTRY="$run/registry"
export TOLVANE_REGISTRY_MACHINE="$run/machine-registry"
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
    echo "No display: Tolvane runs offscreen (set DISPLAY to see its windows)."
    export QT_QPA_PLATFORM=offscreen
fi
exec build/program/tolvane "$@"
