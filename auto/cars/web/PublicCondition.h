// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/sql/KSql.h"

#include <QString>

// Conditions on a car, whose table has the alias ai, about what strangers may see.
namespace PublicCondition {

// The office has ticked it.
KSql ticked();
// It is ticked, and neither sold nor archived nor put aside as inactive.
KSql onOffer();

// "نمایش در وب", as commands, columns, filters and the history call the tick.
QString caption();

}
