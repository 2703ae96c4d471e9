// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/imported/ImportedKind.h"

#include "suite/accounting/bin/Bin.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/db/records/KMySQL.h"

ImportedKind::~ImportedKind() = default;

QString ImportedKind::keptBecause(qint32, int) const
{
    return {};
}

void ImportedKind::takeBack(qint32 key, int database) const
{
    const RecordSubject *subject = RecordSubjects::of(table());
    Q_ASSERT(subject && subject->make);
    const std::unique_ptr<KMySQL> record = subject->make(database);
    if (!record->lockRecord(key))
        throw RowChanged(RowChanged::Kind::Gone, *record, key);
    Bin::put(*record);
    record->Delete();
}
