// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QDateTime>
#include <QString>

#include <optional>

class KMySQL;

// Deleted records with what belonged to them, until they are taken back (BinRestoring) or their time is over.
namespace Bin {

// Days for which a deleted record is kept where the office says nothing else; the least and the most that it may say.
inline constexpr int usualDays = 90;
inline constexpr int leastDays = 1;
inline constexpr int mostDays = 3650;

struct Entry
{
    qint32 id = 0;
    QString table;
    qint32 key = 0; // of the record
    QString title;  // what people knew it by; its kind is that of its table (RecordSubjects)
    qint32 userID = 0;
    QDateTime date;

    // Kind and title, as "قرارداد 102".
    TZACCOUNTINGDATA_EXPORT QString name() const;
};

// The setting, brought to the nearest bound.
TZACCOUNTINGDATA_EXPORT int days(int database = 0);

// Whether the current user is one, as it stands now and not as it stood at the login.
TZACCOUNTINGDATA_EXPORT bool isAdministrator(int database = 0);

// Puts the record, which holds its row, into the bin, right before it is deleted, in the same transaction. Returns the key of the entry;
// 0: records of its table are not kept, or it is one that nobody has saved yet (Placeholders). Throws CMySQLException, and nothing is to
// be deleted then.
TZACCOUNTINGDATA_EXPORT qint32 put(KMySQL &record);

TZACCOUNTINGDATA_EXPORT std::optional<Entry> entry(qint32 id, int database = 0);
// The newest one of that record.
TZACCOUNTINGDATA_EXPORT std::optional<Entry> entryOf(const QString &table, qint32 key, int database = 0);

// Takes the entry out with its rows, without bringing the record back. Joins the caller's transaction. False: it was gone.
TZACCOUNTINGDATA_EXPORT bool take(qint32 id, int database = 0);
// The same for good, by a user: an administrator, in an open database (KAccountingError). False: it was gone.
TZACCOUNTINGDATA_EXPORT bool remove(qint32 id, int database = 0);
// All of it. Returns how many there were.
TZACCOUNTINGDATA_EXPORT int removeAll(int database = 0);
// Those whose days are over, each in a unit of its own; nothing while another program does so, and in a closed database. Returns how many.
TZACCOUNTINGDATA_EXPORT int removeExpired(int database = 0);

}
