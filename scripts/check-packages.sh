#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# packages.txt has the form that its readers expect: known sections, one well-formed package name per line, none twice in a section.

set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/files.sh"

bad=0
seen=0
section=
declare -A listed
complain() {
    echo "packages.txt: $*"
    bad=$((bad + 1))
}
while IFS= read -r line; do
    entry=$(sed 's/#.*//; s/[[:space:]]*$//; s/^[[:space:]]*//' <<<"$line")
    case $entry in
        '') ;;
        '[run]' | '[recommended]' | '[build]' | '[font]' | '[java]' | '[test]' | '[unpacked]' | '[bench]' | '[package]' | '[develop]') section=$entry ;;
        '['*) complain "unknown section $entry" ;;
        *)
            seen=$((seen + 1))
            [ -n "$section" ] || complain "$entry stands before any section"
            [[ $entry =~ ^[a-z0-9][a-z0-9.+-]+$ ]] || complain "'$entry' is no package name"
            [ -z "${listed[$section$entry]:-}" ] || complain "$entry stands twice in $section"
            listed[$section$entry]=1
            ;;
    esac
done <"$root/packages.txt"

if [ "$seen" -eq 0 ]; then
    complain "names no package"
fi
finish_check "$bad" "$seen packages"
