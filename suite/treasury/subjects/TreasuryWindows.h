// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/TzTreasuryExport.h"

// Receipts and cheques among RecordWindows, and receiving from a person and paying one.
namespace TreasuryWindows {

// For as long as the program runs; a second call changes nothing.
TZTREASURY_EXPORT void enter();

}
