// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/sql/KSql.h"

#include <QList>
#include <QString>
#include <QStringList>

// What somebody typed into the search, as beginnings of keys (SearchText).
struct TZACCOUNTINGDATA_EXPORT SearchQuery
{
    // A record is meant where one of its keys begins with one of these.
    using Starts = QStringList;

    // All of what was typed as one: a name in any order of its words, a plate, a telephone number with its blanks.
    Starts whole;
    // Where there are several words: a record is meant too where each of them is found in it.
    QList<Starts> words;

    bool isEmpty() const { return whole.isEmpty(); }
    static SearchQuery of(const QString &typed);
    // The column of a key begins with one of them, by ranges; FALSE for none.
    static KSql beginsWith(const KSql &column, const Starts &starts);
};
