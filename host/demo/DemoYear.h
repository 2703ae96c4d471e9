// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDate>

// The fiscal year that the demo office works in. What is posted through the units of the windows has a day of it, as in an office;
// the money of the last months may lie in two years.
namespace DemoYear {

// Opens the year of that day, if another one is open.
void enter(const QDate &day);

}
