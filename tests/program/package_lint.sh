#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The package as Debian and the software centres check it: lintian with no error and no warning,
# the menu entry and the metainfo valid, the manual pages readable by man.
# Usage: package_lint.sh FOLDER   (the folder that holds tolvane_*.deb)
set -euo pipefail
deb=$(ls "$1"/tolvane_*.deb)
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
lintian --fail-on error,warning --no-tag-display-limit "$deb"
dpkg -x "$deb" "$root"
desktop-file-validate "$root/usr/share/applications/tolvane.desktop"
appstreamcli validate --no-net "$root"/usr/share/metainfo/*.metainfo.xml
# The page made from the tool's --help lists its commands; the program's page tells the vault is not enciphered.
MANPATH="$root/usr/share/man" man -P cat tolvane-vault | grep -q "rescue FILE"
MANPATH="$root/usr/share/man" man -P cat tolvane | grep -q "not enciphered"
echo "package checks passed"
