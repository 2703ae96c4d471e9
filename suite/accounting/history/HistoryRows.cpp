// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/history/HistoryRows.h"

#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/history/CTblChanges.h"
#include "suite/accounting/history/HistoryMerge.h"
#include "suite/accounting/history/HistoryWords.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/db/records/KLookup.h"

#include <QMap>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Titles = QHash<int, QString>;

constexpr int mostOfOneSave = 100; // notes

void add(QList<HistoryEntry> &entries, const KSql &condition, int database)
{
    CTblChanges notes(database);
    notes.m_filter = condition + " AND " + HistoryRows::readable();
    for (notes.Open(true, true, true); !notes.IsEOF(); notes.MoveNext())
        entries.append(HistoryRows::entryOf(notes));
}

bool isAdministrator()
{
    return GetDBSetting()->GetUserID() > 0 && GetDBSetting()->IsAdmin();
}

KSql isRecord(const QString &table, const QList<int> &keys)
{
    return KSql::formatted("(sTable=%1 AND iRecordID IN (%2))", KSql::quoted(table), KSql::list(keys));
}

// What is still in its table.
Titles presentTitles(const RecordSubject &subject, const QList<int> &keys, int database)
{
    Titles titles;
    const std::unique_ptr<KMySQL> record = subject.make(database);
    record->m_filter = KSql::formatted("iID IN (%1)", KSql::list(keys));
    for (record->Open(false, true, true); !record->IsEOF(); record->MoveNext())
        titles.insert(record->value(u"iID").toInt(), subject.title(*record));
    return titles;
}

// What was noted when it was deleted.
void addDeletedTitles(Titles &titles, const RecordSubject &subject, const QList<int> &keys, int database)
{
    if (keys.isEmpty())
        return;
    CTblChanges notes(database);
    notes.m_filter = isRecord(subject.table, keys) + KSql::formatted(" AND iKind=%1", static_cast<int>(KChange::Kind::Deleted));
    for (notes.Open(false, true, true); !notes.IsEOF(); notes.MoveNext()) {
        const std::unique_ptr<KMySQL> record = subject.make(database);
        if (record->GetTableName() != subject.table)
            return;
        record->AddNew();
        for (const KChangedValue &value : KChangedValues::fromJson(notes.m_sValues.toUtf8())) {
            if (record->column(value.column) && !value.isSecret)
                record->setValue(value.column, value.before);
        }
        if (record->column(u"iID"))
            record->setValue(u"iID", notes.m_iRecordID);
        titles.insert(notes.m_iRecordID, subject.title(*record));
    }
}

Titles titlesOf(const QString &table, const QSet<int> &keys, int database)
{
    const RecordSubject *subject = RecordSubjects::of(table);
    if (!subject || !subject->title || !subject->make)
        return {};
    Titles titles = presentTitles(*subject, keys.values(), database);
    QList<int> gone;
    for (const int key : keys) {
        if (!titles.contains(key))
            gone.append(key);
    }
    addDeletedTitles(titles, *subject, gone, database);
    return titles;
}

QString titleOf(const HistoryEntry &entry, const QHash<QString, Titles> &titles)
{
    if (entry.key == 0)
        return {};
    const QString title = titles.value(entry.table).value(entry.key);
    return title.isEmpty() ? QString::number(entry.key) : title;
}

}

KSql HistoryRows::readable()
{
    if (isAdministrator())
        return "TRUE";
    QList<KSql> tables;
    for (const RecordSubject *subject : RecordSubjects::all()) {
        if (!subject->form.isEmpty() && KSecurity::IsGranted(subject->form, KSecurity::Read))
            tables.append(KSql::quoted(subject->table));
    }
    return tables.isEmpty() ? KSql("FALSE") : KSql::formatted("sTable IN (%1)", KSql::joined(tables, ","));
}

KSql HistoryRows::ofRecord(const QString &table, qint32 key, int database)
{
    QMap<QString, QList<int>> keys{{table, {key}}};
    const RecordSubject *subject = RecordSubjects::of(table);
    for (const RecordSubject::Part &part : subject && subject->parts ? subject->parts(key, database) : QList<RecordSubject::Part>())
        keys[part.table].append(part.key);
    QList<KSql> conditions;
    for (auto of = keys.cbegin(); of != keys.cend(); ++of)
        conditions.append(isRecord(of.key(), *of));
    return "(" + KSql::joined(conditions, " OR ") + ")";
}

HistoryEntry HistoryRows::entryOf(const CTblChanges &note)
{
    HistoryEntry entry;
    entry.id = note.m_iID;
    entry.table = note.m_sTable;
    entry.key = note.m_iRecordID;
    entry.change = {note.m_iUserID, note.m_sComputer, note.m_date, note.kind()};
    entry.hasValues = !note.m_sValues.isEmpty();
    entry.values = KChangedValues::fromJson(note.m_sValues.toUtf8());
    return entry;
}

void HistoryRows::complete(QList<HistoryEntry> &entries, int database)
{
    QHash<QString, QSet<int>> keys;
    QList<int> users;
    for (const HistoryEntry &entry : std::as_const(entries)) {
        users.append(entry.change.userID);
        if (entry.key != 0)
            keys[entry.table].insert(entry.key);
    }
    QHash<QString, Titles> titles;
    for (auto of = keys.cbegin(); of != keys.cend(); ++of)
        titles.insert(of.key(), titlesOf(of.key(), *of, database));
    const QHash<int, QString> userNames = KLookup::names<CTblChanges>(u"iUserID", users, database);
    writeLines(entries, database);
    const bool showsComputer = isAdministrator();
    for (HistoryEntry &entry : entries) {
        entry.user = userNames.value(entry.change.userID);
        entry.kind = HistoryWords::kindOf(entry.table);
        entry.title = titleOf(entry, titles);
        entry.action = HistoryWords::action(entry.change.kind);
        if (!showsComputer)
            entry.change.computer.clear();
    }
}

void HistoryRows::writeLines(QList<HistoryEntry> &entries, int database)
{
    HistoryWords words(database);
    words.lookUp(entries);
    for (HistoryEntry &entry : entries)
        entry.lines = words.lines(entry.table, entry.values);
}

void HistoryRows::addBefore(QList<HistoryEntry> &entries, int database)
{
    if (entries.isEmpty())
        return;
    const int oldest = std::ranges::min_element(entries, {}, &HistoryEntry::id)->id;
    add(entries, KSql::formatted("iID<%1 AND iID>=%2", oldest, oldest - mostOfOneSave), database);
}

void HistoryRows::addBehind(QList<HistoryEntry> &entries, int database)
{
    if (entries.isEmpty())
        return;
    const int newest = std::ranges::max_element(entries, {}, &HistoryEntry::id)->id;
    add(entries, KSql::formatted("iID>%1 AND iID<=%2", newest, newest + mostOfOneSave), database);
}

QList<HistoryEntry> HistoryRows::read(const KSql &condition, int limit, int database)
{
    CTblChanges notes(database);
    notes.m_filter = "(" + condition + ") AND " + readable();
    notes.m_sort = "iID DESC";
    notes.SetLimit(limit);
    QList<HistoryEntry> entries;
    for (notes.Open(true, true, true); !notes.IsEOF(); notes.MoveNext())
        entries.append(entryOf(notes));
    const bool isCut = limit > 0 && entries.size() >= limit;
    const int oldest = isCut ? entries.constLast().id : 0;
    if (isCut)
        addBefore(entries, database);
    entries = HistoryMerge::of(entries);
    entries.removeIf([oldest](const HistoryEntry &entry) { return entry.id < oldest; });
    complete(entries, database);
    return entries;
}
