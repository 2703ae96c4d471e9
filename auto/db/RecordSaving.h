// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/db/RecordCodes.h"
#include "suite/db/KTransaction.h"
#include "suite/accounting/office/CDBSetting.h"

#include <QString>

#include <functional>

using namespace Qt::StringLiterals;

// Saves a record that a user has written or changed, in one transaction with what belongs to it.
namespace RecordSaving {

// What the user decided about a stored record.
template <class Record>
struct Decision
{
    int key = 0;
    int status = 0; // 0 active, 1 not
    // Sets the columns of the record, which is open for editing; may run again when the transaction is replayed.
    std::function<void(Record &)> write;
};

template <class Record>
using Step = std::function<void(Record &)>;

// Writes the record as it is now with what was decided. A record that nobody has saved yet becomes the current user's.
// beforeRow runs between the decision and the row, and may set columns too; afterRow runs after the row. What a step throws
// ends the save, and nothing of it is kept. A code that was changed into an empty one or that of another row throws
// RecordCodes::Refused. False when the record is gone.
template <class Record>
[[nodiscard]] bool save(const Decision<Record> &decision, const Step<Record> &beforeRow = {}, const Step<Record> &afterRow = {})
{
    bool saved = false;
    KTransaction::runReplayable([&] {
        saved = false;
        Record record;
        if (!record.IsRecordExist(u"iID"_s, decision.key))
            return;
        record.Edit();
        if (record.m_iUserID == 0)
            record.m_iUserID = GetDBSetting()->GetUserID();
        record.m_iStatus = decision.status;
        const qint32 codeBefore = record.m_iCode;
        decision.write(record);
        if (record.m_iCode != codeBefore)
            RecordCodes::requireFree(record.GetTableName(), record.m_iCode, record.m_iID, record.database());
        if (beforeRow)
            beforeRow(record);
        record.Update(true);
        if (afterRow)
            afterRow(record);
        saved = true;
    });
    return saved;
}

}
