#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# Every shell script parses, and those with a shebang line are executable.

set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/files.sh"

bad=0
seen=0
while IFS= read -r file; do
    first=$(head -c 64 "$root/$file" | head -n 1 | tr -d '\0')
    case $first in
        '#!'*sh) ;;
        *) continue ;;
    esac
    seen=$((seen + 1))
    if ! bash -n "$root/$file"; then
        bad=$((bad + 1))
    fi
    if [ ! -x "$root/$file" ]; then
        echo "$file: not executable"
        bad=$((bad + 1))
    fi
done < <(project_files)

if [ "$seen" -eq 0 ]; then
    echo "No script found in $root"
    exit 1
fi
finish_check "$bad" "$seen shell scripts"
