#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# A check that cannot fail proves nothing: the check of the manual is shown a small one, once sound and once with a fault of each kind.

set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/assert.sh"

tree="$work/tree"
manual="$tree/docs/manual"

check() { python3 -B "$source_root/tests/project/manual.py" "$tree"; }

fresh() {
    rm -rf "$tree"
    mkdir -p "$manual/pictures" "$tree"/{auto,suite,host} "$tree/tests/look"
    touch "$tree/auto/CDlgCars.h" "$tree/host/CDlgLogin.h"
    printf '%s\n' 'setTitle(u"&گالري"' '"خودرو"_s);' >"$tree/auto/CDlgCars.cpp"
    printf '%s\n' 'entries.push_back({"cars", page()});' >"$tree/tests/look/Table.cpp"
    printf 'x' >"$manual/pictures/cars.png"
    printf '%s\n' '# راهنما' '- [خودروها](cars.md)' '- [پنجره‌ها](windows.md)' >"$manual/index.md"
    printf '%s\n' '# خودروها' '![](pictures/cars.png)' '## سطر یک' '[همین](#سطر-یک) [آن](windows.md) «گالري»' >"$manual/cars.md"
    printf '%s\n' '# پنجره‌ها' '| خودرو | [خودروها](cars.md) | `CDlgCars` `CDlgLogin` |' >"$manual/windows.md"
}

# broken WORDS FILE LINE: with the line at its end, the check fails and its output names the words.
broken() {
    fresh
    printf '%s\n' "$3" >>"$tree/$2"
    expect_status 1 "$1" check
    expect_output 'the check' "$1"
}

fresh
expect_status 0 'a sound manual' check
broken 'CDlgNew has no page' auto/CDlgNew.h ''
broken 'there is no CDlgGone' docs/manual/windows.md '| گمشده | [خودروها](cars.md) | `CDlgGone` |'
broken 'CDlgCars stands twice' docs/manual/windows.md '| خودرو | [خودروها](cars.md) | `CDlgCars` |'
broken 'other.md: not in the contents' docs/manual/other.md '# دیگر'
broken 'cars stands twice' docs/manual/index.md '- [خودروها](cars.md)'
broken 'index.md: gone.md is not there' docs/manual/index.md '- [گمشده](gone.md)'
broken 'cars.md: #سطر-دو is not there' docs/manual/cars.md '[آن](#سطر-دو)'
broken 'windows.md: cars.md#سطر-سه is not there' docs/manual/windows.md '[آن](cars.md#سطر-سه)'
broken 'cars.md: pictures/gone.png is not there' docs/manual/cars.md '![](pictures/gone.png)'
broken 'pictures/other.png: no window of that name is looked at' docs/manual/pictures/other.png 'x'
broken 'the program does not say «گاراژ»' docs/manual/cars.md 'دکمه «گاراژ»'
broken 'cars.md:5: Arabic letter' docs/manual/cars.md 'گالري'

fresh
sed -i 's/^# .*/# اتومبیل‌ها/' "$manual/cars.md"
expect_status 1 'a title of its own' check
expect_output 'the check' 'cars.md: its title is not that of the contents'

fresh
sed -i '/png/d' "$manual/cars.md"
expect_status 1 'a picture that is shown nowhere' check
expect_output 'the check' 'pictures/cars.png: on no page'
expect_output 'the check' 'cars.md: no picture of its window'

fresh
head -c 300000 /dev/zero >"$manual/pictures/cars.png"
expect_status 1 'a large picture' check
expect_output 'the check' 'pictures/cars.png: larger than'

fresh
for number in {1..60}; do
    cp "$manual/pictures/cars.png" "$manual/pictures/cars-tab$number.png"
    printf '![](pictures/cars-tab%s.png)\n' "$number" >>"$manual/cars.md"
done
expect_status 1 'many pictures' check
expect_output 'the check' '61 pictures, more than 60'

finish
