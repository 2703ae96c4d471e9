// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/lists/KListFilter.h"

// The filters of the list of deleted records.
namespace BinFilter {

// users: those whose deletions are listed.
TZACCOUNTINGDATA_EXPORT QList<KListFilter> filters(const KListFilter::Choices &users);
// Everybody who has deleted something that is still there.
TZACCOUNTINGDATA_EXPORT QList<KListFilter::Choice> users(int database = 0);
// The records that the current user may take back: all for an administrator, else his own.
TZACCOUNTINGDATA_EXPORT KSql own(int database = 0);

}
