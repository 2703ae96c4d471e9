// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/TzTreasuryDataExport.h"

#include <QString>

// The number of a cheque in the central bank's register.
namespace SayadNumber {

inline constexpr int length = 16;

// ASCII digits without the separators that people type.
TZTREASURYDATA_EXPORT QString normalized(const QString &typed);
// Why it is no such number, in words for the user; empty for a right one.
TZTREASURYDATA_EXPORT QString problem(const QString &typed);

}
