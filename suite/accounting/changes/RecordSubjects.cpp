// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/RecordSubjects.h"

#include "suite/db/records/KChangeLog.h"
#include "suite/db/records/KMySQL.h"

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// One object for each, so that what of() returned stays where it is while others are entered.
std::vector<std::unique_ptr<RecordSubject>> &entered()
{
    static std::vector<std::unique_ptr<RecordSubject>> subjects;
    return subjects;
}

}

void RecordSubjects::enter(RecordSubject subject)
{
    remove(subject.table);
    entered().push_back(std::make_unique<RecordSubject>(std::move(subject)));
}

void RecordSubjects::remove(const QString &table)
{
    std::erase_if(entered(), [&](const auto &subject) { return subject->table == table; });
}

const RecordSubject *RecordSubjects::of(const QString &table)
{
    const auto found = std::ranges::find_if(entered(), [&](const auto &subject) { return subject->table == table; });
    return found == entered().end() ? nullptr : found->get();
}

QList<const RecordSubject *> RecordSubjects::all()
{
    QList<const RecordSubject *> subjects;
    for (const auto &subject : entered())
        subjects.append(subject.get());
    return subjects;
}

QString RecordSubjects::tableOf(int recordKind)
{
    const auto found = std::ranges::find_if(entered(), [&](const auto &subject) { return subject->recordKinds.contains(recordKind); });
    return found == entered().end() ? QString() : (*found)->table;
}

void RecordSubjects::noteOn(int recordKind, qint32 recordID, const QString &ownTable, const QList<KChangedValue> &values, int database)
{
    const QString table = tableOf(recordKind);
    if (!values.isEmpty())
        KChangeLog::note(table.isEmpty() ? ownTable : table, recordID, KChange::Kind::Changed, database, values);
}

QString RecordSubjects::nameOf(const QString &table, qint32 key, int database)
{
    const RecordSubject *subject = of(table);
    if (!subject)
        return u"%1 %2"_s.arg(table).arg(key);
    if (key == 0)
        return subject->kind;
    const std::unique_ptr<KMySQL> record = subject->make(database);
    QString title;
    if (subject->title && record->IsRecordExist(u"iID"_s, key))
        title = subject->title(*record);
    return u"%1 %2"_s.arg(subject->kind, title.isEmpty() ? QString::number(key) : title);
}
