// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"

// Clauses that the filters of the module's lists share; as FilterClauses.
namespace ListClauses {

// The value is a position in WordLists::archiveStates. Without an alias for "not archived", where a list's filter has none there.
KListFilter::Clause archive(KSql notArchived, KSql column);

}
