#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# usage: packed_and_installed.sh BUILD_FOLDER
#
# Packs the build as its preset does, and tries the package.

set -euo pipefail

root=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.." && pwd)
build=$1

"$root/scripts/setup.sh" package
package=$("$root/packaging/build-deb.sh" "$(basename "$build")")
/usr/bin/python3 -B "$root/tests/package/installed.py" "$package" --work "$build/package" --pictures "$build/package/pictures"
