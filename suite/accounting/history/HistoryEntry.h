// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KChangeLog.h"

#include <QList>

// One thing that happened to a record, as the history shows it: what one save noted in several steps is one entry.
struct HistoryEntry
{
    // A column whose value changed, in words.
    struct Line
    {
        QString caption;
        QString before; // empty: nothing stood there
        QString after;
    };

    qint32 id = 0; // of the newest note in it
    QString table;
    qint32 key = 0; // 0: no record of its own
    KChange change;
    bool hasValues = false; // false: noted before values were
    QList<KChangedValue> values;

    // What HistoryRows adds.
    QString user;   // the shown name; empty: the program itself, or somebody who is gone
    QString kind;   // of the record
    QString title;  // what people know the record by; empty where there is none
    QString action; // what was done
    QList<Line> lines;
};
