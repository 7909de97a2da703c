#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what a fresh Debian 12 machine lacks for building and testing Tolvane.
set -euo pipefail
packages=(cmake g++ make ccache qt6-base-dev qt6-base-dev-tools libqt6svg6 qt6-translations-l10n libxcb1-dev clang libclang-rt-14-dev xvfb xauth fonts-liberation2 trayer
          xclip xdotool xdg-utils shared-mime-info poppler-utils dpkg-dev
          dbus at-spi2-core python3-pyatspi
          scdoc help2man lintian desktop-file-utils appstream
          keepassxc)
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "Installing: ${missing[*]}"
    sudo=""
    [ "$(id -u)" -eq 0 ] || sudo="sudo"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}"
fi
