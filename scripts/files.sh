#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# Sourced by the checks: project_files lists the files of the project, relative to $root, as git knows them, also those not
# yet added; without git (an unpacked release, a machine that has none) everything except build output.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

project_files() {
    if git -C "$root" rev-parse --is-inside-work-tree >/dev/null 2>&1; then
        git -C "$root" ls-files --cached --others --exclude-standard
    else
        (cd "$root" && find . \( -path ./.git -o -path ./build -o -path ./node_modules -o -path ./.cache -o -name __pycache__ \) \
            -prune -o -type f -printf '%P\n')
    fi | sort -u | while IFS= read -r file; do
        if [ -f "$root/$file" ]; then
            printf '%s\n' "$file"
        fi
    done
}

# finish_check BAD WHAT: the closing line and exit code of a check that found BAD faults.
finish_check() {
    if [ "$1" -gt 0 ]; then
        echo "$1 fault(s): $2"
        exit 1
    fi
    echo "No fault: $2"
}
