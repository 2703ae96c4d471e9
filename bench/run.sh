#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# usage: bench/run.sh [PROGRAM...]
#
# Installs what is missing, builds and runs every benchmark (or those named), and ends in one table: ours, the bare library, a
# peer, the ratio, its bound (bench/bounds.tsv), the noise. The same stands in build/bench/results.json. Ends with an error when a
# bound is missed by more than the noise, or a line could not be measured.
#
# Offices of many rows are kept in build/bench/offices (TZ_BENCH_OFFICES names another folder), and filled only where they are missing.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
"$root/scripts/setup.sh" run build font java bench
cd "$root"
cmake --preset bench
cmake --build build/bench
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} LC_ALL=C.UTF-8
export TZ_BENCH_OFFICES=${TZ_BENCH_OFFICES:-$root/build/bench/offices}
mkdir -p "$TZ_BENCH_OFFICES"

# The programs are those that the table of bounds names.
mapfile -t programs < <(awk -F '\t' '!/^#/ && NF > 2 { sub("/.*", "", $3); if (!seen[$3]++) print $3 }' bench/bounds.tsv)
only=()
if [ $# -gt 0 ]; then
    programs=("$@")
    only=(--only "$@")
fi

# What a program that is broken off leaves is gone with the run.
TMPDIR=$(mktemp --directory --tmpdir tz-bench.XXXXXX)
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT

samples=build/bench/samples
rm -rf "$samples"
mkdir -p "$samples"
failed=()
for program in "${programs[@]}"; do
    printf '\n== %s (load %s)\n' "$program" "$(cut -d ' ' -f 1 /proc/loadavg)"
    case $program in
        startup) bench/startup.py build/bench/bin/tzhost --samples "$samples/startup.json" ;;
        # On the offices that Growth has filled.
        footprint) bench/footprint.py build/bench/bin/tzhost --samples "$samples/footprint.json" \
            --office "small=$TZ_BENCH_OFFICES/10000" "large=$TZ_BENCH_OFFICES/1000000" ;;
        *) TZ_BENCH_SAMPLES="$samples/$program.json" "build/bench/bench/$program" --benchmark_enable_random_interleaving=true ;;
    esac || failed+=("$program")
done

printf '\n'
status=0
bench/judge.py "$samples" --json build/bench/results.json "${only[@]}" || status=1
if [ ${#failed[@]} -gt 0 ]; then
    printf 'ended with an error: %s\n' "${failed[*]}"
    status=1
fi
exit $status
