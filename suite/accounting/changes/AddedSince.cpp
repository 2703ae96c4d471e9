// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/AddedSince.h"

#include "suite/accounting/changes/RowChanged.h"
#include "suite/db/records/CTblTemp.h"

AddedSince::AddedSince(QString table, int database)
    : m_table(std::move(table))
    , m_database(database)
{
    CTblTemp temp(database);
    temp.Open(true, false, true);
    temp.ExecuteQuery("SELECT MAX(iID) FROM " + KSql::name(m_table));
    m_last = temp.GetLongFieldValue(0);
}

QString AddedSince::by(const KSql &condition) const
{
    CTblTemp temp(m_database);
    temp.ExecuteQuery(
        KSql::formatted("SELECT iID FROM %1 WHERE iID>%2 AND (%3) ORDER BY iID LIMIT 1", KSql::name(m_table), m_last, condition));
    return temp.HasResultRow() ? RowChanged::lastChange(m_table, temp.GetLongFieldValue(0), m_database) : QString();
}
