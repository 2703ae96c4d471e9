// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/connection/KTransaction.h"

#include <QString>

#include <functional>

// The codes that users know contracts, cars and demands by: one row each. The tables do not say so, because databases exist
// whose rows share one; what is written from now on is checked here.
namespace RecordCodes {

// A code that cannot be saved; the text says why.
class Refused : public KAccountingError
{
public:
    using KAccountingError::KAccountingError;
};

QString emptyMessage();

// Until the end of the calling thread's transaction nobody else draws or takes a code of the table. Not before a read of the
// table in the same transaction, which would go on seeing the codes of its own beginning.
void lock(const QString &table, int database = 0);
// Throws Refused for an empty code (below 1), and for one that another row of the table has. Within the transaction that
// writes the code.
void requireFree(const QString &table, int code, int exceptID, int database = 0);

// Adds a row with the next code, one more than the highest; fill sets its other columns, runs right before the row is
// added and may run again. Returns the key.
template <class Record>
int add(const std::function<void(Record &)> &fill, int database = 0)
{
    Record record(database);
    record.Open(true, false, true);
    const KReadAhead ahead(database);
    KTransaction::runReplayable(
        [&] {
            Record::expectNextCode(database);
            lock(record.GetTableName(), database);
            record.AddNew();
            record.m_iCode = Record::nextCode(database);
            fill(record);
            record.Update(true);
        },
        database);
    return record.m_iID;
}

}
