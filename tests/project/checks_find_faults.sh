#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# A check that cannot fail proves nothing: each is shown a small tree, once sound and once with one fault.

set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/assert.sh"

header='# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later'

# Put together, so that this file passes the check itself.
scheme=https

fresh_tree() {
    rm -rf "$work/tree"
    mkdir -p "$work/tree/scripts"
    cp "$source_root"/scripts/check-*.sh "$source_root/scripts/files.sh" "$work/tree/scripts/"
    mkdir -p "$work/tree/.git/hooks" "$work/tree/build/dev" "$work/tree/node_modules/x"
    touch "$work"/tree/{.git/hooks/sample,build/dev/x.cpp,node_modules/x/index.js}
    printf '{ "integrity": "sha512-0" }\n' >"$work/tree/package-lock.json"
    printf '%s\n[run]\nlibqt6svg6 # icons\n' "$header" >"$work/tree/packages.txt"
}

# broken CHECK WORDS FILE TEXT: with FILE holding TEXT, the check fails and its output names WORDS.
broken() {
    fresh_tree
    expect_status 0 "check-$1 on a sound tree" "$work/tree/scripts/check-$1.sh"
    printf '%s\n' "$4" >"$work/tree/$3"
    expect_status 1 "check-$1 on $3" "$work/tree/scripts/check-$1.sh"
    expect_output "check-$1" "$2"
}

broken headers 'a.cpp: no licence header' a.cpp 'int main() {}'
broken headers 'b.sh: no licence header' b.sh '# SPDX-FileCopyrightText: 2026 The TzAuto team'
broken addresses "a.txt: $scheme://downloads.invalid" a.txt "from $scheme://downloads.invalid/x"
broken addresses 'remake it' package-lock.json '{ "resolved": "here", "integrity": "sha512-0" }'
broken addresses 'no checksum' package-lock.json '{}'
broken scripts 'syntax error' a.sh '#!/bin/bash
if true; then'
broken scripts 'not executable' a.sh '#!/bin/sh'
broken packages 'unknown section' packages.txt '[rum]'
broken packages 'before any section' packages.txt 'cmake'
broken packages 'is no package name' packages.txt '[run]
two words'
broken packages 'stands twice' packages.txt '[run]
cmake
cmake'
broken packages 'names no package' packages.txt '[run]'
finish
