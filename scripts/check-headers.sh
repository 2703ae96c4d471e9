#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# Every file names its owner and licence in its first lines, except in formats that cannot hold a comment.

set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/files.sh"

bad=0
seen=0
while IFS= read -r file; do
    case $file in
        LICENSE | packaging/changelog | *.json | *.png | *.webp | *.docx | *.csv | *.mdb | tests/*/data/*) continue ;;
    esac
    seen=$((seen + 1))
    start=$(head -n 6 "$root/$file")
    if [[ $start != *"SPDX-FileCopyrightText: "* || $start != *"SPDX-License-Identifier: GPL-3.0-or-later"* ]]; then
        echo "$file: no licence header"
        bad=$((bad + 1))
    fi
done < <(project_files)

if [ "$seen" -eq 0 ]; then
    echo "No file found to look at in $root"
    exit 1
fi
finish_check "$bad" "licence headers of $seen files"
