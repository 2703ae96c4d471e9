// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"
#include "suite/treasury/TzTreasuryDataExport.h"

// Filter of the list of receipts and payments. Void ones are left out unless requested; the whole last day is included.
//
// The kinds stand behind a choice of all (position 0); the methods carry their own numbers.
TZTREASURYDATA_EXPORT QList<KListFilter> receiptFilters(const KListFilter::Choices &kinds = {}, const KListFilter::Choices &methods = {});
