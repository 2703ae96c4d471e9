// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/RowArchiving.h"

#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/db/records/KMySQL.h"
#include "suite/db/connection/KTransaction.h"

bool RowArchiving::run(KMySQL &record, int key, const std::function<void(KMySQL &)> &archive)
{
    bool archived = false;
    KTransaction::runReplayable([&] {
        OfficeClosing::requireOpen();
        if (!record.lockRecord(key))
            throw RowChanged(RowChanged::Kind::Gone, record, key);
        archived = record.value(u"iArchiveUserID").toInt() == 0;
        if (!archived)
            return;
        archive(record);
        KChangeLog::note(record.GetTableName(), key, KChange::Kind::Archived);
    });
    return archived;
}
