// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QFont>

class QWidget;

// The sizes and weights of text, relative to the application's font, so that a larger one enlarges all.
namespace LookFonts {

enum class Use {
    Page,    // greeting, name of a car, a month's figure: 20 of 13, bold
    Title,   // of a card or group: 14, bold
    Text,    // 13
    Strong,  // name in a row, amount, sums line, button: 13, medium
    Primary, // the primary button, the current tab: 13, bold
    Label,   // label, second line, hint, status line: 12
    Column,  // title of a column: 12, bold
    Chip,    // 12, medium
    Key      // key cap, axis of a chart: 11
};

TZUTILITY_EXPORT QFont font(Use use);
// Sets the font, and the colour that goes with it: Label is quiet, the others stay as they are.
TZUTILITY_EXPORT void apply(QWidget *label, Use use);
// A label in the colour of hints, and one in that of errors.
TZUTILITY_EXPORT void applyHint(QWidget *label);
TZUTILITY_EXPORT void applyError(QWidget *label);

}
