#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# usage: packaging/build-deb.sh [PRESET]
#
# Builds the preset (release) and the .deb from it, into build/PRESET, and prints its path. With lintian here, fails on what it calls
# an error.

set -euo pipefail

root=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.." && pwd)
preset=${1:-release}

cd "$root"
{
    if [ "$preset" = release ]; then
        scripts/setup.sh run build font java package
    fi
    cmake --preset "$preset"
    cmake --build --preset "$preset" --parallel "$(nproc)"
    rm -f build/"$preset"/tzauto_*.deb
    cpack --config "build/$preset/CPackConfig.cmake" -B "build/$preset"
} >&2
package=$(printf '%s\n' "$root/build/$preset"/tzauto_*.deb)
if command -v lintian >/dev/null; then
    lintian --allow-root --fail-on error --suppress-tags bogus-mail-host "$package" >&2
fi
printf '%s\n' "$package"
