// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/TzTreasuryDataExport.h"

// Receipts, payments, cheques and notes in the stories of records.
namespace MoneyStory {

// For as long as the program runs.
TZTREASURYDATA_EXPORT void enter();

}
