// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/sql/KSql.h"

#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>

// A row of a statement, each value as text; empty for NULL.
using SearchRow = QStringList;

// A record that was found, as it is shown.
struct SearchHit
{
    int kind = 0;
    QString table;
    qint32 key = 0;
    QString title; // what people call it: "قرارداد 134، مبایعه نامه"
    QString line;  // what tells it from others
    QString aside; // at the line's end: a date, a state
};

// What is read of the records of a kind.
struct SearchColumns
{
    QStringList names; // "t.iID" first, with t for the kind's table and the aliases of what is joined
    KSql from;         // "Persons t"
};

// A kind of record that is searched for.
struct SearchKind
{
    int number = 0; // SearchKeys.iKind; stored, so it never moves
    QString table;
    QString group; // of several: "قراردادها"
    QString form;  // of KSecurity: who may read there finds them
    // The columns of the table that its keys are made of.
    QStringList columns;
    SearchColumns keyColumns;
    std::function<QStringList(const SearchRow &row)> keys;
    // The columns of keyColumns that hold keys of persons, whose names are among the record's keys; by position.
    QList<qsizetype> persons = {};
    // The same for what is shown; the hit's title, line and aside are filled.
    SearchColumns hitColumns = {};
    std::function<SearchHit(const SearchRow &row)> hit = {};
    // How the list of the kind names the table's key in a condition.
    KSql listKey = "iID";
    // What is worth knowing of one record that was found, a label and a text each; of other kinds of record only of those that may be read
    // (numbers). Empty: nothing more.
    std::function<QList<std::pair<QString, QString>>(qint32 key, const QList<int> &readable, int database)> facts = {};
};

// The kinds that this program searches; entered by SearchIndex, which follows their rows.
class TZACCOUNTINGDATA_EXPORT SearchKinds
{
public:
    enum Number : int {
        Persons = 1,
        Contracts = 2,
        Cars = 3,
        Demands = 4,
        Cheques = 5,
        Documents = 6,
        Invoices = 7,
        Receipts = 8
    };

    // Replaces one of the same number.
    static void enter(SearchKind kind);
    static void remove(int number);
    // In the order of their numbers. Copies, because searching is done beside the thread that enters them.
    static QList<SearchKind> all();
    // One of number 0 where nobody has entered it.
    static SearchKind of(int number);
    // What a row of the kind's keyColumns is found by, with the persons whom it names.
    static QSet<QString> keysOf(const SearchKind &kind, const SearchRow &row);
    // The rows that the condition names, with t for the kind's table. Throws CMySQLException.
    static QList<SearchRow> read(const SearchColumns &columns, const KSql &condition, int database = 0);
};
