// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/bin/Bin.h"

#include <QString>
#include <QStringList>

#include <optional>

// Takes a deletion back.
namespace BinRestoring {

struct Restored
{
    QString table;
    qint32 key = 0;  // of the record now
    QString message; // what came back, and what of it could not come back as it was
};

// Who deleted the record takes it back as long as he may delete such ones, an administrator takes back all. As the rights stand now.
TZACCOUNTINGDATA_EXPORT bool mayRestore(const Bin::Entry &entry, int database = 0);

// A record that came back because another refers to it.
struct Along
{
    qint32 key = 0; // of the row that is referred to, now
    QStringList notes;
};

// Brings the record back whose row is in the bin, as its own or among what went along, within a unit of work that brings back another.
// Nothing: it is not there, or not to be taken back by the current user.
TZACCOUNTINGDATA_EXPORT std::optional<Along> bringAlong(const QString &table, qint32 key, int database = 0);

// All of the entry comes back, and it leaves the bin; with it come the records that it refers to, where those are in the bin too. One unit
// of work. Throws KAccountingError, with nothing changed: without the right, in a closed database, when another desk was first, and for
// what RecordReturn refuses; CMySQLException.
TZACCOUNTINGDATA_EXPORT Restored run(const Bin::Entry &shown, int database = 0);

}
