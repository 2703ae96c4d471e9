#!/bin/bash
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

# A check that cannot fail proves nothing: the check of the look's values is shown these sources, once as they are and then with a
# fault of each kind.

set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/assert.sh"

tree="$work/tree"
mkdir "$tree"
(cd "$source_root" && find auto suite host \( -name '*.h' -o -name '*.cpp' \) -exec cp --parents -t "$tree" {} +)

check() { python3 -B "$source_root/tests/project/look_values.py" "$tree"; }

# plant FILE LINE...
plant() {
    mkdir -p "$(dirname "$tree/$1")"
    printf '%s\n' "${@:2}" >"$tree/$1"
}

expect_status 0 'the sources as they are' check

# What is none: no colour yet, one that is asked for, words about colours, and a picture of another kind.
plant auto/editor/PlantedRight.cpp \
    'QColor ink;' \
    'QColor none = QColor();' \
    'painter.setPen(HostColors::of(HostColors::Role::Line));' \
    '// QColor(1, 2, 3) and setStyleSheet("color: #ff0000") would stay as they are' \
    'QIcon sign = LookIcons::icon(u":/icons/new.svg"_s);' \
    'painter.fillRect(rect(), Qt::transparent);' \
    'const QString number = u"contract #12"_s;'
expect_status 0 'what is no fault' check

plant auto/editor/PlantedColours.cpp \
    'const QColor edge(0x2e, 0x8b, 0x57);' \
    'painter.setPen(QColor(190, 30, 30));' \
    'constexpr QRgb mark = 0;' \
    'const int mark = qRgb(1, 2, 3);' \
    'painter.setBrush(Qt::darkRed);' \
    'label->setText(u"<b style=color:#c0392b>"_s);'
plant suite/crm/persons/PlantedSheet.cpp 'label->setStyleSheet(u"font-weight: bold"_s);'
plant suite/crm/persons/PlantedSizes.cpp 'font.setPixelSize(14);' 'font.setPointSize(12);' 'font.setPointSizeF(10.5);'
plant host/desk/PlantedIcons.cpp 'button->setIcon(QIcon(u":/icons/new.svg"_s));' 'QIcon sign(u":/icons/new.svg"_s);'
expect_status 1 'a fault of each kind' check
for said in \
    'auto/editor/PlantedColours.cpp:1: colour' \
    'auto/editor/PlantedColours.cpp:2: colour' \
    'auto/editor/PlantedColours.cpp:3: colour' \
    'auto/editor/PlantedColours.cpp:4: colour' \
    'auto/editor/PlantedColours.cpp:5: colour' \
    'auto/editor/PlantedColours.cpp:6: colour' \
    'suite/crm/persons/PlantedSheet.cpp:1: style sheet' \
    'suite/crm/persons/PlantedSizes.cpp:1: size of a font' \
    'suite/crm/persons/PlantedSizes.cpp:2: size of a font' \
    'suite/crm/persons/PlantedSizes.cpp:3: size of a font' \
    'host/desk/PlantedIcons.cpp:1: icon' \
    'host/desk/PlantedIcons.cpp:2: icon' \
    '12 fault(s) in'; do
    expect_output 'a fault of each kind' "$said"
done
rm "$tree"/auto/editor/Planted* "$tree"/suite/crm/persons/Planted* "$tree"/host/desk/Planted*

# The table of exceptions names what needs one.
plant suite/image/PictureIntake.cpp ''
expect_status 1 'an exception that nothing needs' check
expect_output 'an exception that nothing needs' 'suite/image/PictureIntake.cpp may name a colour'
finish
