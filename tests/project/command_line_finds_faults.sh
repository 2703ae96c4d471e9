#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# usage: command_line_finds_faults.sh TZHOST TZ_DEMO_DATA
#
# A check that cannot fail proves nothing: the check of the options is shown texts with a fault of each kind.

set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/assert.sh"

host=$1
demo=$2
folder="$work/packaging"

check() { python3 -B "$source_root/tests/project/command_line.py" "$host" "$demo" "$folder"; }

# broken WORDS FILE EXPRESSION: edited so, the check fails and its output names the words.
broken() {
    rm -rf "$folder"
    cp -r "$source_root/packaging" "$folder"
    sed -i "$3" "$folder/$2"
    expect_status 1 "$1" check
    expect_output 'the check' "$1"
}

broken 'the manual page of tzhost lacks --tls' tzhost.1 's/^\.B \\-\\-tls$/.B tls/'
broken 'the manual page of tzhost has --gone' tzhost.1 's/^\.B \\-\\-demo$/.B \\-\\-gone/'
broken 'the manual page of tz-demo-data lacks --contracts' tz-demo-data.1 's/^\.BI \\-\\-contracts/.BI contracts/'
broken 'the completion lacks --verify' tzhost.bash-completion 's/--backup --verify/--backup/'
broken 'the completion has --gone' tzhost.bash-completion 's/--help --version/--help --version --gone/'
broken 'does not offer a moment' tzhost.bash-completion 's/-W "now"/-W "then"/'
broken 'tzhost.1:' tzhost.1 's/^\.SH FILES$/.XX FILES/'
finish
