// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/TzTreasuryDataExport.h"

// Cheques and receipts among SearchKinds.
namespace TreasurySearch {

// For as long as the program runs.
TZTREASURYDATA_EXPORT void enter();

}
