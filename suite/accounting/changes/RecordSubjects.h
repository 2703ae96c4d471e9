// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/db/records/KChangedValues.h"

#include <QList>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <memory>

class KMySQL;

// A kind of record as people name it, wherever records of many tables stand together: in the history, in the bin, in a backup.
struct RecordSubject
{
    QString table;
    QString kind; // "قرارداد"
    QString form; // of KSecurity: whoever may read there may read the record's history; empty: administrators alone
    // An empty record of the table, whose columns say captions and where the names behind keys stand.
    std::function<std::unique_ptr<KMySQL>(int database)> make;
    // What people know the loaded record by, such as a code and a name, in one line; empty: its key.
    std::function<QString(KMySQL &record)> title = {};
    // The caption of a column whose own is empty or says too little, and the word for a value that is a number with a meaning; empty texts where
    // the column's declaration says enough.
    std::function<QString(const QString &column)> caption = {};
    std::function<QString(const QString &column, const QVariant &value)> word = {};
    // Columns that only repeat what others say.
    QStringList derived = {};
    // The records whose history is also that of this one: a contract's accounting document, its plan, its receipts. Throws CMySQLException.
    struct Part
    {
        QString table;
        qint32 key;
    };
    std::function<QList<Part>(qint32 key, int database)> parts = {};
    // Under which the suite keeps what belongs to such a record: attached files, custom fields (RecordKinds.h).
    QList<int> recordKinds = {};

    // For make.
    template <class Record>
    static std::function<std::unique_ptr<KMySQL>(int)> maker()
    {
        return [](int database) { return std::make_unique<Record>(database); };
    }
};

// The kinds that this program knows. The suite's are entered at the start, the module's while it is loaded.
class TZACCOUNTINGDATA_EXPORT RecordSubjects
{
public:
    // Replaces one of the same table.
    static void enter(RecordSubject subject);
    static void remove(const QString &table);
    // Null for a table that nobody has entered.
    static const RecordSubject *of(const QString &table);
    // In the order in which they were entered.
    static QList<const RecordSubject *> all();
    // The table of the kind of record (RecordKinds.h); empty where nobody has entered it.
    static QString tableOf(int recordKind);
    // Notes a change of what belongs to a record and stands elsewhere, as one of the record: an attached file, the value of a custom field.
    // Under the table of that name where nobody has entered the kind. Throws CMySQLException.
    static void noteOn(int recordKind, qint32 recordID, const QString &ownTable, const QList<KChangedValue> &values, int database = 0);
    // The record of that key as a message names it: kind and title as it is now; the kind and the key where it is gone, the kind alone where
    // there is no key. Throws CMySQLException.
    static QString nameOf(const QString &table, qint32 key, int database = 0);
};
