// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QList>

class QButtonGroup;
class QWidget;

// Makes Tab (and Enter in a form) go through the controls below the container as its layouts show them: row by row,
// a group box as a whole before the next one.
TZUTILITY_EXPORT void tabInLayoutOrder(QWidget *container);

// The controls below the container that Tab meets, in that order.
TZUTILITY_EXPORT QList<QWidget *> tabStopsIn(const QWidget *container);

// Lets Tab come to the picked option of a group alone. The toolkit lets it come to the first one until an option has had the
// focus, and away from there the arrow keys pick another.
TZUTILITY_EXPORT void tabToPickedOption(QButtonGroup *group);
