// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/TzTreasuryDataExport.h"

// Cheques that are due, what is in the cash boxes and banks, and the user's own notes and calls whose next date has come, among TodayCards.
namespace TreasuryToday {

// For as long as the program runs; a second call changes nothing.
TZTREASURYDATA_EXPORT void enter();

}
