// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KRowValues.h"

#include <QList>
#include <QStringList>

// A column that two sides have changed since one of them read it.
struct RowConflict
{
    QString column;
    QVariant opened; // as the window read it
    QVariant theirs; // as it is in the table now
    QVariant mine;   // as the window would write it

    bool operator==(const RowConflict &) const = default;
};

// What the user decided about a column that both sides had changed. It holds for the value that was shown: when the row has been
// changed once more, the decision is void.
struct RowAnswer
{
    QVariant theirs;
    bool takeTheirs = false;
};

// The rule by which a window's entries go onto a row that somebody else may have changed meanwhile. A column that only one side
// changed takes that side's value. Columns of one group count as one field: they are taken together from one side.
struct TZDB_EXPORT RowMerge
{
    struct Sides
    {
        KRowValues opened;    // as the window read the row
        KRowValues untouched; // what the window would have written had nobody entered anything; a missing column: as opened
        KRowValues theirs;    // the row now
        KRowValues mine;      // what the window writes; names the columns that are merged
        QList<QStringList> groups;
        QHash<QString, RowAnswer> answers;
    };

    // Of every column of mine; where there are conflicts, of no use.
    KRowValues result;
    // In each field that both sides changed to different values: the columns that a side changed. Empty when all could be merged.
    // Sorted by column name within a field, fields in the order of groups and then by name.
    QList<RowConflict> conflicts;

    static RowMerge of(const Sides &sides);
};
