// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

class QWidget;

// Makes Tab (and Enter in a form) go through the controls below the container as its layouts show them: row by row,
// a group box as a whole before the next one.
TZUTILITY_EXPORT void tabInLayoutOrder(QWidget *container);
