// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/TzTreasuryDataExport.h"

// Receipts, cheques and what was said about what is due, among RecordSubjects.
namespace TreasurySubjects {

// For as long as the program runs; a second call changes nothing.
TZTREASURYDATA_EXPORT void enter();

}
