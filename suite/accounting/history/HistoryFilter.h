// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"
#include "suite/accounting/TzAccountingDataExport.h"

// What the window of the history can be asked for.
namespace HistoryFilter {

// of: the condition of the record whose history is shown (HistoryRows::ofRecord); empty: everything, with a filter of the kind of record.
TZACCOUNTINGDATA_EXPORT QList<KListFilter> table(const KSql &of);

}
