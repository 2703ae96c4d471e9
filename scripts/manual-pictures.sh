#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# Renews the manual's pictures: `manual-pictures.sh [FOLDER]`. Those that its pages show are taken from what the test of every window
# left in the build, or in that folder, and made small.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

taken=${1:-build/dev/look}
pictures=docs/manual/pictures
mkdir -p "$pictures"
missing=0
while IFS= read -r name; do
    from="$taken/$name-1366x768-100-light.png"
    if [ ! -f "$from" ]; then
        echo "$name: no picture in $taken"
        missing=$((missing + 1))
        continue
    fi
    # Windows have few colours; a palette of them is a fourth of the size.
    convert "$from" -strip -dither None -colors 128 -define png:compression-level=9 "png8:$pictures/$name.png"
done < <(grep -hoP '\(pictures/\K[\w-]+(?=\.png\))' docs/manual/*.md | sort -u)
[ "$missing" -eq 0 ]
