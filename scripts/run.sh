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
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ] && [ -z "${QT_QPA_PLATFORM:-}" ]; then
    # Offscreen, nobody could see its windows or answer its messages.
    cat >&2 <<'EOF'
No display: Tolvane is a windowed program and has nothing to show here.
Run this from a desktop session (DISPLAY or WAYLAND_DISPLAY set), or under a virtual X server:
    xvfb-run -a scripts/run.sh
Built: build/program/tolvane
EOF
    exit 1
fi
exec build/program/tolvane "$@"
