#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# The sources name no address that a build would fetch from: what they need comes through the package managers' own
# settings, so that an office behind a mirror builds like any other. Allowed are names of formats and of the licence.

set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/files.sh"

allowed='^(www\.w3\.org|www\.gnu\.org|fsf\.org|spdx\.org|www\.freedesktop\.org|www\.debian\.org|schemas\.openxmlformats\.org|purl\.org|purl\.oclc\.org|schemas\.microsoft\.com|localhost|127\.0\.0\.1|.*\.example|example\.(com|org))$'
bad=0
seen=0
while IFS= read -r file; do
    seen=$((seen + 1))
    while IFS= read -r hit; do
        host=${hit##*://}
        if ! [[ $host =~ $allowed ]]; then
            echo "$file: $hit"
            bad=$((bad + 1))
        fi
    done < <(grep -aoiE '(https?|ftp|git|ssh)://[a-z0-9.-]+' "$root/$file" || true)
done < <(project_files)

if grep -qE '"resolved"' "$root/package-lock.json"; then
    echo "package-lock.json: holds addresses; remake it with the settings of .npmrc"
    bad=$((bad + 1))
fi
if ! grep -qE '"integrity": "sha512-' "$root/package-lock.json"; then
    echo "package-lock.json: no checksum"
    bad=$((bad + 1))
fi
if [ "$seen" -eq 0 ]; then
    echo "No file found to look at in $root"
    exit 1
fi
finish_check "$bad" "addresses in $seen files"
