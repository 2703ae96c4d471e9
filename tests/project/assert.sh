#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# Sourced by the tests of scripts: a temporary folder, and the reporting of a fault.

source_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
faults=0

fault() {
    echo "FAULT: $*"
    faults=$((faults + 1))
}

# expect_status STATUS WHAT COMMAND...: runs it, keeps its output in $output.
expect_status() {
    local expected=$1 what=$2 status=0
    shift 2
    output=$("$@" 2>&1) || status=$?
    if [ "$status" -ne "$expected" ]; then
        fault "$what: ended with $status, not $expected: $output"
    fi
}

expect_output() {
    [[ $output == *"$2"* ]] || fault "$1: does not say '$2': $output"
}

finish() {
    [ "$faults" -eq 0 ] && echo "all as expected"
    exit "$((faults > 0))"
}
