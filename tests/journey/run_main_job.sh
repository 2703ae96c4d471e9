#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# usage: run_main_job.sh PROGRAM PICTURE_FOLDER [options of main_job.py]
#
# Plays the main job of an office on a screen of its own, through the accessibility interface: from an empty data folder
# to a posted contract that is still there after a new start, and then, in the same office, a car's way from the catalog
# to its archive. Leaves a numbered picture of every step, their captions in captions.txt, and ends with 0 only when every
# check held.

set -euo pipefail

if [ "$#" -lt 2 ]; then
    sed -n 's/^# usage: /usage: /p' "$0" >&2
    exit 2
fi
here=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")" && pwd)
program=$1
pictures=$2
shift 2
# Nothing is written beside the sources.
export PYTHONDONTWRITEBYTECODE=1
office=$(mktemp -d)
trap 'rm -rf "$office"' EXIT
/usr/bin/python3 "$here/main_job.py" "$program" --pictures "$pictures" --seconds 240 "$@" --keep "$office/data"
/usr/bin/python3 "$here/cars_and_demands.py" "$program" --pictures "$pictures" --go-on --seconds 240 "$@" \
    --office "$office/data"
