#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# usage: ./run.sh [arguments of tzhost]
#
# Installs what is missing, builds the program and starts it. Without a display it plays the main job of an office on a
# screen of its own instead, and leaves a picture of every step.

set -euo pipefail

root=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")" && pwd)
program=$root/build/release/bin/tzhost

sections=(run build font java)
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    sections+=(test)
fi
"$root/scripts/setup.sh" "${sections[@]}"

(cd "$root" && cmake --preset release && cmake --build --preset release --parallel "$(nproc)")

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$program" "$@"
fi

pictures=${TZ_SCREENSHOTS:-$root/build/screenshots}
if [ "$#" -gt 0 ]; then
    echo "There is no display here, so these arguments are not used: $*"
fi
echo "There is no display here: playing the main job on a screen of its own ..."
mkdir -p "$pictures"
status=0
"$root/tests/journey/run_main_job.sh" "$program" "$pictures" </dev/null || status=$?
echo "The pictures of its steps are in $pictures"
exit "$status"
