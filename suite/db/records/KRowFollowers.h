// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/TzDBExport.h"

#include <QString>
#include <QStringList>

#include <functional>

// Who keeps something up to date with the rows of a table: called within the transaction that writes a row, after the row is written, so that
// both are kept or neither is. What a follower throws fails the write.
//
// Called for each row that a record set adds, changes or deletes, and for a whole row that is put back. Rows that are changed by a statement
// are not seen: whoever writes such a statement calls changed() or deleted() beside it.
class TZDB_EXPORT KRowFollowers
{
public:
    struct Follower
    {
        // Of a new row, all; of a changed one, those that changed. What it needs of the row it reads by itself: the members of the
        // record set may be a subset of the columns.
        std::function<void(qint32 key, int database)> written;
        std::function<void(qint32 key, int database)> deleted;
        // Only a change of one of these columns is told; empty: of any.
        QStringList columns = {};
    };

    // name: of what follows, such as "search"; a second one of the same name and table replaces the first.
    static void enter(const QString &name, const QString &table, Follower follower);
    static void remove(const QString &name);

    static void added(const QString &table, qint32 key, int database);
    static void changed(const QString &table, qint32 key, int database, const QStringList &columns);
    static void deleted(const QString &table, qint32 key, int database);
};
