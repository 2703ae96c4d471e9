// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/TzTreasuryDataExport.h"

// Money that was received from a person, or paid to one, for nothing in particular.
namespace MoneyOnAccount {

// Received less paid, of what is valid, in the suite's money unit; below 0 more was paid.
TZTREASURYDATA_EXPORT double of(int personID, int database = 0);

}
