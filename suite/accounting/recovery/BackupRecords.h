// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/bin/BinRestoring.h"

#include <QList>
#include <QString>

// Single records of a backup, which is open as a database of its own beside the office's (database 0).
namespace BackupRecords {

// What the office has of a record of the backup now.
enum class State {
    Same,
    Changed, // by other values
    Missing,
    Binned // deleted, and still in the bin
};

struct Found
{
    qint32 key = 0;
    QString title;
    State state = State::Same;
};

struct Difference
{
    QString caption;
    QString then; // in the backup
    QString now;  // in the office
};

// Records that one look returns at most.
inline constexpr int mostFound = 300;

// Those of a table whose texts hold what is searched, or whose code is it; empty: all, newest first. Throws CMySQLException.
TZACCOUNTINGDATA_EXPORT QList<Found> find(const QString &table, const QString &searched, int backup);
TZACCOUNTINGDATA_EXPORT State stateOf(const QString &table, qint32 key, int backup);
// In the words of the forms. Of a missing record every value that it had.
TZACCOUNTINGDATA_EXPORT QList<Difference> differences(const QString &table, qint32 key, int backup);

// Brings the record with what belongs to it into the office, as BinRestoring does, and the records that it refers to where those are missing.
// One that is still there comes back as a new one, if asNew says so: with a code of its own and without its document, which would count
// twice. One unit of work. Throws KAccountingError, with nothing changed: to whoever is no administrator, in a closed database, for a record
// that is in the bin, and for one that is there without asNew; CMySQLException.
TZACCOUNTINGDATA_EXPORT BinRestoring::Restored restore(const QString &table, qint32 key, int backup, bool asNew);

}
