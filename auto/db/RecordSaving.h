// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/db/RecordCodes.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/changes/OpenedRow.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/connection/KTransaction.h"

#include <functional>

// Saves a record that a user has written or changed, in one transaction with what belongs to it.
namespace RecordSaving {

template <class Record>
using Step = std::function<void(Record &)>;

// What the user decided about a stored record.
template <class Record>
struct Decision
{
    int key = 0;
    int status = 0; // 0 active, 1 not
    // Sets the columns that the window holds, as they stand in it; may run again when the transaction is replayed.
    Step<Record> write;
    // The row as the window read it: what others changed since then stays. Empty: all that write sets is taken.
    OpenedRow opened = {};
    // Sets the columns that follow from others, once the record holds what both sides decided.
    Step<Record> follow = {};
};

// What is saved along with the row. What a step throws ends the save, and nothing of it is kept.
template <class Record>
struct Parts
{
    // Takes the locks that come before that of the row.
    std::function<void()> locks = {};
    // Names what the steps will read behind it (KReadAhead), by the row's key and what the window read of it.
    std::function<void(int key, const KRowValues &opened)> expect = {};
    // Runs between the decision and the row, and may set columns too.
    Step<Record> beforeRow = {};
    // Values that belong to the record and stand elsewhere (OpenedRow::Further), read under the lock of its row; they are merged
    // with the row, and afterRow gets what came of it.
    std::function<OpenedRow::Further(Record &)> further = {};
    std::function<void(Record &, const KRowValues &further)> afterRow = {};
};

// Loads the row as it is now and keeps it until the end of the transaction. Throws RowChanged where it is gone or was archived
// since the window read it, and KAccountingError in a database that was closed meanwhile. what: the row as a message names it.
void lockForSaving(KMySQL &record, int key, const OpenedRow &opened, const QString &what);
// That the row will be locked so, and what else every save reads (KReadAhead).
void expectLock(KMySQL &record, int key);
// Empties what belonged to the stored row alone: its document, its place in the archive, its reminder.
void detach(KMySQL &record);

template <class Record>
void takeDecision(Record &record, const Decision<Record> &decision)
{
    record.m_iStatus = decision.status;
    decision.write(record);
}

// Writes the row, which holds what both sides decided, between its parts.
template <class Record>
void writeWith(Record &record, const Decision<Record> &decision, const Parts<Record> &parts, const KRowValues &further)
{
    if (decision.follow)
        decision.follow(record);
    if (parts.beforeRow)
        parts.beforeRow(record);
    record.Update(true);
    if (parts.afterRow)
        parts.afterRow(record, further);
}

// Merges what was decided onto the row as it is now. A record that nobody has saved yet becomes the current user's. Throws
// RowChanged, with nothing kept, where the row is gone, archived, or was changed in what the user changed too; RecordCodes::Refused
// for a code that was changed into an empty one or that of another row.
template <class Record>
void save(const Decision<Record> &decision, const Parts<Record> &parts = {})
{
    KTransaction::runReplayable([&] {
        Record record;
        const KReadAhead ahead(record.database());
        expectLock(record, decision.key);
        if (parts.expect)
            parts.expect(decision.key, decision.opened.values());
        if (parts.locks)
            parts.locks();
        lockForSaving(record, decision.key, decision.opened, Record::spokenName());
        record.Edit();
        const qint32 codeBefore = record.m_iCode;
        const KRowValues further = decision.opened.mergeOnto(
            record, [&] { takeDecision(record, decision); }, parts.further ? parts.further(record) : OpenedRow::Further());
        if (record.m_iUserID == 0)
            record.m_iUserID = GetDBSetting()->GetUserID();
        if (record.m_iCode != codeBefore)
            RecordCodes::requireFree(record.GetTableName(), record.m_iCode, record.m_iID, record.database());
        const bool isFirst = Placeholders::contains({record.GetTableName(), record.m_iID}, record.database());
        if (isFirst)
            record.setNoting(KMySQL::Noting::AsAdded);
        writeWith(record, decision, parts, further);
        if (isFirst)
            Placeholders::confirm(record.GetTableName(), record.m_iID, record.database());
    });
}

// Saves what the window holds as a new row, in place of one that somebody deleted: with a code of its own, unless the user entered
// another than the lost row's, and as the current user's. Returns its key.
template <class Record>
[[nodiscard]] int saveAsNew(const Decision<Record> &decision, const Parts<Record> &parts = {})
{
    int key = 0;
    KTransaction::runReplayable([&] {
        if (parts.locks)
            parts.locks();
        OfficeClosing::requireOpen();
        Record record;
        RecordCodes::lock(record.GetTableName());
        record.Open(true, false, true);
        record.AddNew();
        record.setRowValues(decision.opened.values());
        const qint32 lostCode = record.m_iCode;
        takeDecision(record, decision);
        detach(record);
        if (record.m_iCode == lostCode)
            record.m_iCode = Record::nextCode();
        else
            RecordCodes::requireFree(record.GetTableName(), record.m_iCode, 0);
        record.m_iUserID = GetDBSetting()->GetUserID();
        const KRowValues further = parts.further ? parts.further(record).all() : KRowValues();
        writeWith(record, decision, parts, further);
        key = record.m_iID;
    });
    return key;
}
}
