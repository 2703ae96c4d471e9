// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/records/CTblTemp.h"

CTblTemp::CTblTemp(int database)
    : KMySQL(database)
{
}

CTblTemp::~CTblTemp() = default;

QString CTblTemp::GetTableName() const
{
    return {};
}

void CTblTemp::DoFieldExchange()
{
    // Bound to no table, so it has no columns.
}
