#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# Renews the sheets of all windows: `window-sheets.sh [FOLDER]`. One sheet for each screen and look, from what the test of every window
# left in the build, or in that folder: small pictures under their names, to be looked at side by side.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

taken=${1:-build/dev/look}
sheets=docs/images/windows
mkdir -p "$sheets"
small=$(mktemp -d)
trap 'rm -rf "$small"' EXIT
for screen in 1366x768-100-light 1366x768-100-dark 1366x768-125-light 1920x1080-100-light 1920x1080-200-light; do
    pictures=("$taken"/*-"$screen".png)
    if [ ! -f "${pictures[0]}" ]; then
        echo "$screen: no picture in $taken"
        exit 1
    fi
    rm -f "$small"/*
    mogrify -path "$small" -resize 330x250 "${pictures[@]}"
    montage -label %t "$small"/*.png -tile 10x -geometry 330x250+5+5 -background '#d9dde3' -pointsize 9 "png:$small/sheet"
    convert "png:$small/sheet" -strip -quality 40 "$sheets/$screen.webp"
    echo "$screen: ${#pictures[@]} windows"
done
