// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/ComboWidth.h"

#include <QComboBox>

namespace {

constexpr int ordinaryName = 14;

}

void keepComboWidth(QComboBox &combo)
{
    combo.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo.setMinimumContentsLength(ordinaryName);
}
