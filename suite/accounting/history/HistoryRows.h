// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/history/HistoryEntry.h"
#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/sql/KSql.h"

class CTblChanges;

// What happened to records: reads the log of changes, and the names and words that people know its entries by.
namespace HistoryRows {

// The condition that leaves only what the current user may read: an administrator everything, others the records of the lists that they may
// read; nothing of users, rights and settings.
TZACCOUNTINGDATA_EXPORT KSql readable();
// The condition of one record's entries with those of what belongs to it. Throws CMySQLException.
TZACCOUNTINGDATA_EXPORT KSql ofRecord(const QString &table, qint32 key, int database = 0);

// The note that the record holds, without names and words.
TZACCOUNTINGDATA_EXPORT HistoryEntry entryOf(const CTblChanges &note);
// Adds them, in a handful of statements for any number of entries. A record that is gone is named by what was noted when it was deleted.
// Computers are for administrators alone. Throws CMySQLException.
TZACCOUNTINGDATA_EXPORT void complete(QList<HistoryEntry> &entries, int database = 0);
// What changed in each, alone: for who knows the record and names the users by itself.
TZACCOUNTINGDATA_EXPORT void writeLines(QList<HistoryEntry> &entries, int database = 0);

// Adds the notes just before the oldest one, for a limit may have cut what one save noted: HistoryMerge makes one entry of it again. What
// else is among them is nobody's. Throws CMySQLException.
TZACCOUNTINGDATA_EXPORT void addBefore(QList<HistoryEntry> &entries, int database = 0);
// The same with the notes just behind the newest one, for entries that are read on from others.
TZACCOUNTINGDATA_EXPORT void addBehind(QList<HistoryEntry> &entries, int database = 0);

// Reads, merges (HistoryMerge) and completes, newest first. limit: of the notes; 0: all. Of what the current user may read.
TZACCOUNTINGDATA_EXPORT QList<HistoryEntry> read(const KSql &condition, int limit = 0, int database = 0);

}
