// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/db/connection/KTransaction.h"

// Takes a record out of the archive, and only the very one.
namespace RecordArchiving {

// Throws RowChanged when the row is gone or another desk took it out before, KAccountingError in a closed database.
template <class Record>
void takeOut(int key)
{
    KTransaction::runReplayable([key] {
        OfficeClosing::requireOpen();
        Record record;
        if (!record.lockRecord(key))
            throw RowChanged(RowChanged::Kind::Gone, record, key, Record::spokenName());
        if (record.m_iArchiveUserID == 0)
            throw RowChanged::unarchived(record, Record::spokenName());
        Record::unarchive(record.m_iCode);
        KChangeLog::note(record.GetTableName(), key, KChange::Kind::Unarchived);
    });
}

}
