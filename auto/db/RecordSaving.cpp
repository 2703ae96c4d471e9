// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/RecordSaving.h"

using namespace Qt::StringLiterals;

void RecordSaving::lockForSaving(KMySQL &record, int key, const OpenedRow &opened, const QString &what)
{
    OfficeClosing::requireOpen(record.database());
    if (!record.lockRecord(key))
        throw RowChanged(RowChanged::Kind::Gone, record, key, what);
    const QString archiver = u"iArchiveUserID"_s;
    if (!opened.isEmpty() && opened.values().value(archiver).toInt() == 0 && record.value(archiver).toInt() != 0)
        throw RowChanged::archived(record, what);
}

void RecordSaving::expectLock(KMySQL &record, int key)
{
    OfficeClosing::expect(record.database());
    record.expectLock(key);
    Placeholders::expect({record.GetTableName(), key}, record.database());
}

void RecordSaving::detach(KMySQL &record)
{
    for (const QString &column : {u"iDocNum"_s, u"iFiscalYear"_s, u"iArchiveUserID"_s, u"dateArchive"_s, u"iAlarmID"_s}) {
        if (record.column(column))
            record.setValue(column, {});
    }
}
