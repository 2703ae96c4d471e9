// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/sql/KSql.h"

// Rows that go by the statement of another record, which deletes several tables at once.
namespace DeletedRows {

// Notes the rows with these keys (a SELECT of them) as deleted, before the statement that deletes them.
template <class Record>
void note(const KSql &keys, int database)
{
    Record rows(database);
    rows.m_filter = "iID IN (" + keys + ")";
    for (rows.Open(false, true, true); !rows.IsEOF(); rows.MoveNext())
        rows.noteDeleted();
}

}
