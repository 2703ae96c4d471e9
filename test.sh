#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# usage: ./test.sh [arguments of ctest]
#
# Installs what is missing, builds everything and runs every test but the long ones (labels faults,
# journey_again, package). Ends with ctest's closing
# lines and its exit code.

set -euo pipefail

root=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")" && pwd)

"$root/scripts/setup.sh" run build font java test unpacked bench
cd "$root"
cmake --preset dev
cmake --build --preset dev --parallel "$(nproc)"
exec ctest --preset dev --parallel "$(nproc)" --label-exclude '^(faults|journey_again|package)$' "$@" </dev/null
