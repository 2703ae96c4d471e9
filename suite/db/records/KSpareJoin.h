// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/TzDBExport.h"
#include "suite/sql/KSql.h"

#include <QList>
#include <QString>

// An outer join of a view that only repeats rows, and the grouping that makes one of them again. The view has columns of its other
// tables alone, and those are joined by their keys; so where neither the filter nor the order names the repeating table, the rows
// are the same without both, and the database need not make and sort all of them before it can give the first.
struct TZDB_EXPORT KSpareJoin
{
    QString rest = {};            // what stands after FROM without it; empty: there is no such join
    KSql grouping = {};           // what each filter ends with
    QList<QByteArray> names = {}; // how an expression names the table: its alias with the dot, and each column that it alone has

    // Whether the filter, which ends with the grouping, and the order can do without the table. What only looks like a name of it,
    // within a text that somebody typed, makes this false too.
    bool isSpared(const KSql &filter, const KSql &order) const;
};
