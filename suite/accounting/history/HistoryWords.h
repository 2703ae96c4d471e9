// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/history/HistoryEntry.h"
#include "suite/accounting/TzAccountingDataExport.h"

#include <QHash>

#include <memory>

struct RecordSubject;
class KMySQL;

// Says in words what changed: captions of the form's labels, names behind keys, grouped amounts, Shamsi dates. Keeps the names that it has
// looked up, so it lives as long as one list is filled. Throws CMySQLException.
class TZACCOUNTINGDATA_EXPORT HistoryWords
{
public:
    explicit HistoryWords(int database = 0);
    ~HistoryWords();
    HistoryWords(const HistoryWords &) = delete;
    HistoryWords &operator=(const HistoryWords &) = delete;

    // Looks up the names behind the keys of all of them: a statement for each table of names, whatever the number of entries.
    void lookUp(const QList<HistoryEntry> &entries);
    // One line per column that people know; what has neither a caption nor words is left out.
    QList<HistoryEntry::Line> lines(const QString &table, const QList<KChangedValue> &values);

    // What was done, as the list and its filter call it.
    static QString action(KChange::Kind kind);
    // The kind of record; of a table that nobody has entered, the table.
    static QString kindOf(const QString &table);
    // The lines in one, each text cut to a length that a list has room for: "قیمت : 120,000 ← 100,000". A line without a value before or
    // after says the other alone where all of the entry is so (a record that was added or deleted).
    static QString sentence(const HistoryEntry &entry);
    // Stands for a value where a change says that there is none.
    static QString nothing();

private:
    struct Table
    {
        const RecordSubject *subject = nullptr;
        std::unique_ptr<KMySQL> record;
    };

    const Table &tableOf(const QString &table);
    QString captionOf(const Table &table, const QString &column) const;
    QString wordOf(const Table &table, const QString &column, const QVariant &value);

    int m_database;
    QHash<QString, std::shared_ptr<Table>> m_tables;
    QHash<QString, QHash<int, QString>> m_names; // by the place where the names stand
};
