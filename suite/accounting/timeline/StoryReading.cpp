// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/timeline/StoryReading.h"

#include "suite/db/records/CTblTemp.h"

#include <QSet>

namespace {

// Where each column stands in the statement.
enum Place : int {
    PartNumber,
    Key,
    When,
    Until,
    Numbers,
    Amount = Numbers + int(StoryColumns::mostNumbers),
    Texts,
    User = Texts + int(StoryColumns::mostTexts)
};

void addColumns(QList<KSql> &columns, const QList<KSql> &named, qsizetype count, const KSql &none)
{
    for (qsizetype i = 0; i < count; ++i)
        columns.append(named.value(i, none));
}

KSql selectOf(const StoryColumns &part, int number, int limit)
{
    QList<KSql> columns{KSql::number(number), part.key, part.when, part.until};
    addColumns(columns, part.numbers, StoryColumns::mostNumbers, "0");
    columns.append(part.amount);
    addColumns(columns, part.texts, StoryColumns::mostTexts, "''");
    columns.append(part.user);
    return KSql::formatted("(SELECT %1 FROM %2 LIMIT %3)", KSql::joined(columns, ","), part.from, limit);
}

StoryRow rowOf(const CTblTemp &statement)
{
    StoryRow row;
    row.key = statement.GetLongFieldValue(Key);
    row.when = statement.GetDateFieldValue(When);
    row.until = statement.GetDateFieldValue(Until);
    for (int i = 0; i < int(StoryColumns::mostNumbers); ++i)
        row.numbers[i] = statement.GetLongFieldValue(Numbers + i);
    row.amount = statement.GetDoubleFieldValue(Amount);
    for (int i = 0; i < int(StoryColumns::mostTexts); ++i)
        row.texts[i] = statement.GetTextFieldValue(Texts + i);
    row.user = statement.GetLongFieldValue(User);
    return row;
}

void addEvent(QList<StoryEvent> &events, const StorySource &source, const StoryRow &row)
{
    std::optional<StoryEvent> event = source.tell(row);
    if (!event)
        return;
    event->when = row.when;
    event->userID = row.user;
    events.append(*event);
}

}

StoryReading::Told StoryReading::read(const QList<const StorySource *> &sources, const StoryScope &scope, const StoryScope &readable, int limit, int database)
{
    Told told;
    QList<KSql> parts;
    QList<const StorySource *> tellers; // by the number of the part
    for (const StorySource *source : sources) {
        const StoryScope &itsScope = source->form.isEmpty() ? readable : scope;
        if (source->read) {
            const QList<StoryEvent> events = source->read(itsScope, limit, database);
            told.isCut = told.isCut || events.size() >= limit;
            told.events.append(events);
        }
        for (const StoryColumns &part : source->columns ? source->columns(itsScope) : QList<StoryColumns>()) {
            parts.append(selectOf(part, int(tellers.size()), limit));
            tellers.append(source);
        }
    }
    if (parts.isEmpty())
        return told;
    QList<int> rowsOfPart(tellers.size(), 0);
    CTblTemp statement(database);
    statement.Open(true, false, true);
    for (statement.ExecuteQuery(KSql::joined(parts, " UNION ALL ")); statement.HasResultRow(); statement.MoveNextResult()) {
        const int part = statement.GetLongFieldValue(PartNumber);
        told.isCut = ++rowsOfPart[part] >= limit || told.isCut;
        addEvent(told.events, *tellers.at(part), rowOf(statement));
    }
    return told;
}

void StoryReading::nameUsers(QList<StoryEvent> &events, int database)
{
    QSet<int> users;
    for (const StoryEvent &event : std::as_const(events)) {
        if (event.userID > 0)
            users.insert(event.userID);
    }
    if (users.isEmpty())
        return;
    QHash<int, QString> names;
    CTblTemp rows(database);
    rows.Open(true, false, true);
    rows.ExecuteQuery(KSql::formatted("SELECT iID,COALESCE(NULLIF(sName,''),sUser) FROM Users WHERE iID IN (%1)", KSql::list(users)));
    for (; rows.HasResultRow(); rows.MoveNextResult())
        names.insert(rows.GetLongFieldValue(0), rows.GetTextFieldValue(1));
    for (StoryEvent &event : events) {
        if (event.userID > 0)
            event.user = names.value(event.userID);
    }
}
