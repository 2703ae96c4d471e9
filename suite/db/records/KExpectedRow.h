// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KMySQL.h"

// That IsRecordExist will be asked for the row of that key (KReadAhead). 0 is no row, and nobody asks for it.
template <class Record>
void expectRow(qint32 key, int database = 0)
{
    if (key <= 0)
        return;
    Record record(database);
    record.m_filter = KSql::formatted("iID=%1", key);
    record.SetLimit(1);
    record.expectOpen();
}
