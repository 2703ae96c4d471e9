// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/timeline/RecordChanges.h"

#include "suite/accounting/history/CTblChanges.h"
#include "suite/accounting/history/HistoryMerge.h"
#include "suite/accounting/history/HistoryRows.h"
#include "suite/accounting/history/HistoryWords.h"

using namespace Qt::StringLiterals;

namespace {

using Change = KChange::Kind;

QList<HistoryEntry> entriesOf(const QString &table, qint32 key, int limit, int database)
{
    CTblChanges notes(database);
    notes.m_filter = KSql::formatted("sTable=%1 AND iRecordID=%2", KSql::quoted(table), key);
    notes.m_sort = "iID DESC";
    notes.SetLimit(limit);
    QList<HistoryEntry> entries;
    for (notes.Open(true, true, true); !notes.IsEOF(); notes.MoveNext())
        entries.append(HistoryRows::entryOf(notes));
    return entries;
}

// What was entered says a few columns, and never "from nothing".
void keepFirst(HistoryEntry &entry, const QStringList &columns)
{
    entry.values.removeIf([&](const KChangedValue &value) { return !columns.contains(value.column); });
}

QString titleOf(const StorySubject &subject, const HistoryEntry &entry)
{
    switch (entry.change.kind) {
    case Change::Added:
        return subject.entered;
    case Change::Changed:
        return u"مشخصات تغییر کرد"_s;
    default:
        return HistoryWords::action(entry.change.kind);
    }
}

StoryEvent eventOf(const StorySubject &subject, const HistoryEntry &entry)
{
    const bool isBeginning = entry.change.kind == Change::Added;
    return {.kind = StoryEvent::Kind::Record,
            .when = entry.change.when,
            .tone = isBeginning ? StoryEvent::Tone::Good : StoryEvent::Tone::Neutral,
            .title = titleOf(subject, entry),
            .line = entry.hasValues ? HistoryWords::sentence(entry) : QString(),
            .user = {},
            .table = subject.table,
            .key = entry.key,
            .userID = entry.change.userID};
}

}

RecordChanges::Told RecordChanges::read(const StorySubject &subject, qint32 key, int limit, int database)
{
    Told told;
    QList<HistoryEntry> entries = entriesOf(subject.table, key, limit, database);
    told.isCut = entries.size() >= limit;
    entries = HistoryMerge::of(entries);
    QList<QList<StoryEvent>> ownEvents;
    for (HistoryEntry &entry : entries) {
        const bool isChange = entry.change.kind == Change::Changed;
        ownEvents.append(subject.tell && isChange ? subject.tell(entry) : QList<StoryEvent>());
        if (entry.change.kind == Change::Added)
            keepFirst(entry, subject.first);
    }
    HistoryRows::writeLines(entries, database);
    for (qsizetype i = 0; i < entries.size(); ++i) {
        const HistoryEntry &entry = entries.at(i);
        for (StoryEvent event : std::as_const(ownEvents[i])) {
            event.when = entry.change.when;
            event.userID = entry.change.userID;
            event.table = subject.table;
            event.key = key;
            told.events.append(event);
        }
        told.hasBeginning = told.hasBeginning || entry.change.kind == Change::Added;
        // A change of which everything is told, or of which people know nothing, is no event.
        if (entry.change.kind != Change::Changed || !entry.lines.isEmpty())
            told.events.append(eventOf(subject, entry));
    }
    return told;
}
