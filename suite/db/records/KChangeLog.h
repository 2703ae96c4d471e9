// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KChangedValues.h"
#include "suite/db/TzDBExport.h"

#include <QDateTime>
#include <QString>

#include <optional>

// A change of a row: by whom, when, and what was done.
struct KChange
{
    // As the table Changes keeps it.
    enum class Kind {
        Added = 0,
        Changed = 1,
        Deleted = 2,
        Archived = 3,
        Unarchived = 4,
        // What happened beside the rows; the table is then the kind of thing that it concerns.
        Restored = 5,     // a deleted row came back, or a backup took the place of the database
        SignedIn = 6,
        SignInFailed = 7,
        Exported = 8,     // rows left the program as a file
        BackedUp = 9
    };

    qint32 userID = 0; // 0: a program without a user, such as an upgrade
    QString computer;
    QDateTime when; // by the server's clock
    Kind kind = Kind::Changed;
};

// Who changed which row when, and what in it, in the table Changes. A change is noted in the transaction that makes it. A database without that
// table notes nothing.
class TZDB_EXPORT KChangeLog
{
public:
    // The user on whose behalf this program changes rows from now on; 0: none.
    static void setAuthor(qint32 userID);
    static qint32 author();

    // key 0: the table as a whole, or something that has no row of its own. Throws CMySQLException.
    // values: what changed in the row, empty when that is not known. A database without a column for them notes the rest.
    static void note(const QString &table, qint32 key, KChange::Kind kind, int database = 0, const QList<KChangedValue> &values = {});
    // The same in one packet with the statement that runs next, which adds or changes the row; nothing is noted where it does neither. No key:
    // that of the row which it adds.
    static void noteNext(const QString &table, std::optional<qint32> key, KChange::Kind kind, int database = 0, const QList<KChangedValue> &values = {});
    // The newest change of the row; nothing when none is known.
    static std::optional<KChange> last(const QString &table, qint32 key, int database = 0);
};
