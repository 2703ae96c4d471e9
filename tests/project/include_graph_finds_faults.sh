#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# A check that cannot fail proves nothing: the check of the include graph is shown these sources, once as they are and then
# with a fault of each kind, each in files of its own.

set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/assert.sh"

tree="$work/tree"
mkdir "$tree"
(cd "$source_root" && cp --parents -t "$tree" cmake/kinds.txt &&
    find auto suite host \( -name '*.h' -o -name '*.cpp' \) -exec cp --parents -t "$tree" {} +)

check() { python3 -B "$source_root/tests/project/include_graph.py" "$tree"; }

# plant FILE LINE...
plant() {
    mkdir -p "$(dirname "$tree/$1")"
    printf '%s\n' "${@:2}" >"$tree/$1"
}

expect_status 0 'the sources as they are' check

# Up a floor, out of a folder that sees nothing but itself, to a stranger, and into the module.
plant suite/db/PlantedBelow.h '#include "suite/utility/frame/PlantedAbove.h"'
plant suite/utility/frame/PlantedAbove.h
plant suite/utility/values/PlantedValue.h '#include "suite/db/PlantedRecord.h"'
plant suite/db/PlantedRecord.h
plant suite/crm/persons/PlantedPerson.cpp '#include "suite/image/PlantedPicture.h"'
plant suite/image/PlantedPicture.h
plant host/start/PlantedStart.cpp '#include "auto/words/PlantedWord.h"' '#include "host/demo/PlantedOffice.h"'
plant auto/words/PlantedWord.h
plant host/demo/PlantedOffice.h

# Two folders that see each other, no file of which does.
plant suite/crm/east/One.h '#include "suite/crm/west/Two.h"'
plant suite/crm/west/Two.h
plant suite/crm/west/Three.cpp '#include "suite/crm/east/Four.h"'
plant suite/crm/east/Four.h

# Three units, no header of which sees itself again.
plant suite/crm/round/One.h
plant suite/crm/round/One.cpp '#include "suite/crm/round/Two.h"'
plant suite/crm/round/Two.h '#include "suite/crm/round/Three.h"'
plant suite/crm/round/Three.h
plant suite/crm/round/Three.cpp '#include "suite/crm/round/One.h"'

# A record and a rule that reach a window only through sources behind headers; a record that shows something itself.
plant auto/db/CTblPlanted.h
plant auto/db/CTblPlanted.cpp '#include "suite/crm/shown/Rule.h"'
plant suite/crm/shown/Rule.h '#include "suite/crm/shown/CDlgPlanted.h"'
plant suite/crm/shown/CDlgPlanted.h
plant suite/crm/shown/CDlgPlanted.cpp '#include "suite/crm/shown/CDlgShown.h"'
plant suite/crm/shown/CDlgShown.h '#include <QMessageBox>'
plant auto/db/CTblShown.cpp '#include <QtWidgets/QComboBox>' '#include "auto/db/CTblGone.h"'

# A rule that reads a row.
echo 'rule suite/crm/ruled Planted' >>"$tree/cmake/kinds.txt"
plant suite/crm/ruled/Planted.h
plant suite/crm/ruled/Planted.cpp '#include "suite/crm/ruled/Rows.h"'
plant suite/crm/ruled/Rows.h
plant suite/crm/ruled/Rows.cpp '#include "suite/db/PlantedRecord.h"'

expect_status 1 'a fault of each kind' check
for said in \
    'suite/db/PlantedBelow.h includes suite/utility/frame/PlantedAbove.h: up a floor' \
    'suite/utility/values/PlantedValue.h includes suite/db/PlantedRecord.h: its folder sees nothing but itself' \
    'suite/crm/persons/PlantedPerson.cpp includes suite/image/PlantedPicture.h: the two do not know each other' \
    'host/start/PlantedStart.cpp includes auto/words/PlantedWord.h: of the module the host knows its entry alone' \
    'host/start/PlantedStart.cpp includes host/demo/PlantedOffice.h: the demo office is a program of its own' \
    'circle of folders suite/crm/east -> suite/crm/west -> suite/crm/east: suite/crm/east/One.h includes suite/crm/west/Two.h; suite/crm/west/Three.cpp includes suite/crm/east/Four.h' \
    'circle of files: suite/crm/round/One.cpp -> suite/crm/round/Two.h -> suite/crm/round/Three.cpp -> suite/crm/round/One' \
    'suite/crm/shown/Rule is no window and reaches one: suite/crm/shown/Rule.h -> suite/crm/shown/CDlgPlanted.cpp -> suite/crm/shown/CDlgShown.h -> <QMessageBox> (and with it 1 more, such as auto/db/CTblPlanted)' \
    'auto/db/CTblShown is no window and reaches one: auto/db/CTblShown.cpp -> <QtWidgets/QComboBox>' \
    'suite/crm/ruled/Planted is a rule and reaches the database: suite/crm/ruled/Planted.cpp -> suite/crm/ruled/Rows.cpp -> suite/db/PlantedRecord' \
    'auto/db/CTblShown.cpp includes auto/db/CTblGone.h, which is not there'; do
    expect_output 'a fault of each kind' "$said"
done
# Those, and the circles of folders that the first two close.
expect_output 'a fault of each kind' '14 fault(s) in'

# The table of windows names what is there and is a window.
plant host/HostProgram.h
plant host/HostProgram.cpp
expect_status 1 'a name of the table that is no window any more' check
expect_output 'a name of the table that is no window any more' 'host/HostProgram stands among the windows and reaches none'
rm "$tree"/host/HostProgram.*
expect_status 1 'a name of the table that went' check
expect_output 'a name of the table that went' 'host/HostProgram stands among the windows and is not there'
finish
