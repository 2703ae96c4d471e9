// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/db/records/KWholeRow.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class KMySQL;

// A column that holds the key of a row of another table.
struct RecordReference
{
    // What becomes of the row when that other row is there no more, and not in the bin either.
    enum class Gone {
        Kept,    // nothing: the key stays as it is
        Emptied, // the key becomes 0
        LeftOut, // the row does not come back
        Refused  // nothing of the record comes back
    };

    QString column;
    QString table;
    // What the other row is to people, as "شخص". Empty: it is not asked for; the key only follows a row that comes back along with this one.
    QString what = {};
    Gone gone = Gone::Kept;
};

// Rows of one table that go with a record when it is deleted, and come back with it.
struct RecordPart
{
    QString table;
    // What one of them is called where they are counted, as "قسط". Empty: they are not counted.
    QString word;
    // The condition of the rows; empty: there are none. record: the record's own row.
    std::function<KSql(const KWholeRow &record, int database)> rows;
    QList<RecordReference> references = {};
    // An empty record of the table, by which its columns are named. Empty: what RecordSubjects knows of the table.
    std::function<std::unique_ptr<KMySQL>(int database)> make = {};

    template <class Record>
    static std::unique_ptr<KMySQL> of(int database)
    {
        return std::make_unique<Record>(database);
    }
};

// What belongs to a record of one table: what its deletion takes along.
struct RecordParts
{
    QString table;
    // Of KSecurity: whoever may delete there may take back what he deleted.
    QString form;
    // Of the record's own row.
    QList<RecordReference> references;
    // In the order in which they come back: a row behind those that it refers to.
    QList<RecordPart> parts;
    // The column of a code that no two rows share; empty: there is none.
    QString code = {};
    // The columns by which people tell one from another, where it is not sure that the same key means the same one.
    QStringList known = {};
    // Run before the record comes back, alone with what is being entered in its table: makes its row fit to those that are there, and says
    // in notes what it changed. What it throws (KAccountingError) keeps the record from coming back.
    std::function<void(KWholeRow &row, int database, QStringList &notes)> settle = {};
    // Run once a record came back out of a backup: brings what follows from other rows, such as from receipts, to what those say now.
    std::function<void(qint32 key, int database)> recount = {};

    // --- The usual parts ---
    // Rows that name the record by its kind (RecordKinds.h) and key, in iTable and iRecordID.
    TZACCOUNTINGDATA_EXPORT static RecordPart byKind(const QString &table, const QString &word, int kind);
    TZACCOUNTINGDATA_EXPORT static RecordPart files(int kind);
    // Which of the files are its papers as they were handed over; behind files(), whose keys they hold.
    TZACCOUNTINGDATA_EXPORT static RecordPart filedPapers(int kind);
    // Besides the record's own.
    TZACCOUNTINGDATA_EXPORT static RecordPart pictures(int kind);
    TZACCOUNTINGDATA_EXPORT static RecordPart customValues(int kind);
    // Rows whose column holds the key of the record.
    TZACCOUNTINGDATA_EXPORT static RecordPart byColumn(const QString &table, const QString &word, const QString &column, const QString &recordTable);
};

// The records whose deletion fills the bin. Those of the suite are entered at the start, the module's while it is loaded.
namespace BinnedRecords {

// Replaces those of the same table.
TZACCOUNTINGDATA_EXPORT void enter(RecordParts parts);
TZACCOUNTINGDATA_EXPORT void remove(const QString &table);
// Null for a table whose records are not kept.
TZACCOUNTINGDATA_EXPORT const RecordParts *of(const QString &table);
TZACCOUNTINGDATA_EXPORT QList<const RecordParts *> all();

}
