// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/sql/KSql.h"
#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>

// The rows that others add to a table while a window is open: two desks may be entering the same thing.
class TZACCOUNTINGDATA_EXPORT AddedSince
{
public:
    // From now on.
    explicit AddedSince(QString table, int database = 0);

    // Who added a row of that condition, and when; empty when nobody did. Within a unit of work, alone (NamedLock).
    QString by(const KSql &condition) const;

private:
    QString m_table;
    int m_database;
    int m_last;
};
