// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/timeline/StoryEvent.h"
#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/sql/KSql.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QPair>
#include <QStringList>

#include <functional>
#include <optional>

struct HistoryEntry;

// The record whose story is told, and the records whose stories are part of it.
struct StoryScope
{
    QString table;
    qint32 key = 0;
    QHash<int, QList<int>> records; // keys by kind of record (RecordKinds.h), its own among them

    // The condition of rows that name one of the records in the columns iTable and iRecordID. prefix: of the columns ("f.").
    TZACCOUNTINGDATA_EXPORT KSql named(const KSql &prefix = {}) const;
    // Empty where there is none of the kind.
    QList<int> of(int recordKind) const { return records.value(recordKind); }
};

// What stands beside a story: who or what it is about.
struct StoryHead
{
    QString title;                                     // "هیوندای توسان"
    QString second;                                    // "مدل 1399، نقره‌ای"; may be empty
    QString plate;                                     // as it is stored; empty: it has none
    QString state;                                     // a word on it, such as "فروخته شده"; empty: none
    StoryEvent::Tone tone = StoryEvent::Tone::Neutral; // of the state
    QList<QPair<QString, QString>> facts;
    QDateTime entered; // invalid: not kept
    QString enteredBy;
    QByteArray picture; // small, as it is stored; empty: there is none
};

// What is read of one event. A statement reads those of all sources, so each of them names the same columns; what it has not stays empty.
struct StoryColumns
{
    KSql key = "0"; // of the record that the event opens
    KSql when = "NULL";
    KSql until = "NULL"; // a second date
    QList<KSql> numbers = {};
    KSql amount = "0"; // in the money unit
    QList<KSql> texts = {};
    KSql user = "0"; // key
    KSql from;       // what follows FROM, to the order by which the newest come first; without a limit

    static constexpr qsizetype mostNumbers = 3;
    static constexpr qsizetype mostTexts = 4;
};

// A row of them; the numbers and texts in the source's own order.
struct StoryRow
{
    qint32 key = 0;
    QDateTime when;
    QDateTime until;
    int numbers[StoryColumns::mostNumbers] = {};
    double amount = 0;
    QString texts[StoryColumns::mostTexts];
    qint32 user = 0;
};

// A kind of record that has a story.
struct StorySubject
{
    QString table;   // also one of RecordSubjects, whose form says who may read it
    QString caption; // "داستان خودرو"
    QString entered; // what is said of its beginning: "خودرو معرفی شد"
    int recordKind = 0;
    bool hasPicture = false; // in its head
    // The columns that are told of a record that was entered.
    QStringList first;
    // Nothing for a record that is gone. Throws CMySQLException, as all of these do.
    std::function<std::optional<StoryHead>(qint32 key, int database)> head;
    // Adds the records that belong to it. At most so many of each kind. Empty: there are none.
    std::function<void(StoryScope &scope, int limit, int database)> widen = {};
    // The changes of columns that are events of their own, such as of a price; takes out of the entry what it tells. Empty: there are none.
    std::function<QList<StoryEvent>(HistoryEntry &entry)> tell = {};
};

// Reads events of one sort.
struct StorySource
{
    QString id;
    QString form; // of KSecurity: who may read there is told; empty: whoever may read the record that it is about
    // Where its events stand, each part by an index; empty where there are none.
    std::function<QList<StoryColumns>(const StoryScope &scope)> columns = {};
    // What a row of them tells; nothing where it tells nothing. Its day and user are filled in.
    std::function<std::optional<StoryEvent>(const StoryRow &row)> tell = {};
    // Adds records whose stories are part of that of a record that a lower floor knows. Empty: there are none.
    std::function<void(StoryScope &scope, int limit, int database)> widen = {};
    // In place of columns, where a rule finds them: the newest so many, in whatever order. A handful of statements.
    std::function<QList<StoryEvent>(const StoryScope &scope, int limit, int database)> read = {};
};

// Whose stories are told, and what they are made of. The suite's are entered at the start, the module's while it is loaded.
namespace StorySources {

// Replaces one of the same table, or id.
TZACCOUNTINGDATA_EXPORT void enter(StorySubject subject);
TZACCOUNTINGDATA_EXPORT void enter(StorySource source);
TZACCOUNTINGDATA_EXPORT void removeSubject(const QString &table);
TZACCOUNTINGDATA_EXPORT void removeSource(const QString &id);
// Null for a table that nobody has entered.
TZACCOUNTINGDATA_EXPORT const StorySubject *of(const QString &table);
TZACCOUNTINGDATA_EXPORT const StorySubject *ofKind(int recordKind);
TZACCOUNTINGDATA_EXPORT QList<const StorySource *> all();

}
