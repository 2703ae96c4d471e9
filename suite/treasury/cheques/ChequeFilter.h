// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"
#include "suite/treasury/TzTreasuryDataExport.h"

// Filter of the register of cheques. Void ones are left out unless requested; the whole last day is included.
TZTREASURYDATA_EXPORT QList<KListFilter> chequeFilters();
