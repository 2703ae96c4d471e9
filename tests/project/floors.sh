#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# usage: floors.sh FOLDER: what the built libraries in FOLDER link.

set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/assert.sh"

needed() { readelf -d "$1/lib$2.so" | sed -n 's/.*(NEEDED).*\[lib\(.*\)\.so.*\].*/\1/p'; }

# never LIBRARY PATTERN: the library links nothing that matches.
never() {
    local found
    found=$(needed "$folder" "$1" | grep -E "$2" || true)
    [ -z "$found" ] || fault "$1 links $(tr '\n' ' ' <<<"$found")"
}

folder=$1
[ -n "$(needed "$folder" TzDB)" ] || fault "no link list could be read in $folder"
never TzSQL '^(Qt6(Gui|Widgets|Network|Svg)|Tz|mariadb)'
never TzDB '^(Qt6(Gui|Widgets|Network|Svg)|Tz(Values|Documents|Utility|Accounting|CRM|Image|Auto))'
never TzValues '^(Qt6(Gui|Widgets|Network|Svg)|Tz|mariadb)'
never TzDocuments '^(Qt6(Gui|Widgets|Network|Svg)|Tz|mariadb)'
never TzUtility '^(Tz(Accounting|CRM|Image|Auto)|sodium)'
never TzAccountingData '^(Qt6(Gui|Widgets|Svg)|TzUtility|Tz(Accounting|CRM|Image|Auto)$)'
never TzCRMData '^(Qt6(Gui|Widgets|Svg)|TzUtility|Tz(Accounting|CRM|Image|Auto)$)'
never TzAutoRules '^(Qt6(Gui|Widgets|Svg)|TzUtility|TzDB|Tz(Accounting|CRM|Image|Auto)$|mariadb)'
never TzAutoData '^(Qt6(Gui|Widgets|Svg)|TzUtility|Tz(Accounting|CRM|Image|Auto)$|mariadb)'
never TzAccounting '^Tz(Treasury|CRM|Image|Auto)'
never TzCRM '^(TzAuto|TzTreasury|TzImage|mariadb|icu)'
never TzTreasuryData '^(Qt6(Gui|Widgets|Svg)|TzUtility|Tz(Accounting|CRM|Image|Treasury|Auto)$)'
never TzTreasury '^(TzAuto|TzImage|mariadb|icu)'
never TzImage '^(TzAuto|TzCRM|mariadb|icu)'
never TzAuto '^(mariadb|sodium|icu)'
finish
