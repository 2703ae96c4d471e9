#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# usage: scripts/lint.sh FILE_OR_FOLDER...
#
# Runs clang-tidy with the checks of .clang-tidy over sources and headers, and over all of them in a folder. It has a build
# folder of its own, build/tidy, in which only what clang-tidy reads is built: it cannot use the compiler's precompiled
# headers.

set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

if [ "$#" -eq 0 ]; then
    echo "usage: scripts/lint.sh FILE_OR_FOLDER..." >&2
    exit 2
fi
mapfile -t files < <(git ls-files --cached --others --exclude-standard -- "$@" | grep -E '\.(h|cpp)$')
if [ "${#files[@]}" -eq 0 ]; then
    echo "no sources in: $*" >&2
    exit 2
fi

cmake --preset tidy >/dev/null

# A class that is declared in a source needs what the meta-object compiler makes of it.
mapfile -t with_moc < <(grep -lE '^#include ".*\.moc"' -- "${files[@]}" || true)
if [ "${#with_moc[@]}" -gt 0 ]; then
    mapfile -t targets < <(grep -F "$(printf ' -c %s\n' "${with_moc[@]/#/$root/}")" build/tidy/compile_commands.json |
        sed -E 's|.* -o .*/?CMakeFiles/([^/]*)\.dir/.*|\1_autogen|' | sort -u)
    cmake --build build/tidy --target "${targets[@]}" >/dev/null
fi

printf '%s\0' "${files[@]}" | xargs -0 -n 1 -P "$(nproc)" clang-tidy -p build/tidy --quiet
echo "No fault: clang-tidy over ${#files[@]} files"
