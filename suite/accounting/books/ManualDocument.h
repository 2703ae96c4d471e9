// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/DocumentWriter.h"

#include <QDateTime>
#include <QSet>

class OpenedRow;

// A document that is written by hand: its rules, and its saving.
struct TZACCOUNTINGDATA_EXPORT ManualDocument
{
    int num = 0; // 0: a new one
    int fiscalYear = 0;
    QDateTime date;
    QString desc;
    QList<DocumentRow> rows;

    struct Problem
    {
        enum class What {
            NoDate,
            NoRows,
            NoAccount,      // none, or one that no row may stand on
            NoPerson,       // a row on the persons account
            NeedlessPerson, // a row on any other account
            NoAmount,
            BothSides,
            AmountTooLarge,
            NotBalanced
        };
        What what;
        int row = -1; // the row it is about, from 0
    };

    // What keeps it from being saved, in the order of the window's fields. accounts: what rows may stand on.
    QList<Problem> problems(const QSet<int> &accounts) const;
    QString message(const Problem &problem) const;

    DocumentContent content() const { return {date, desc, rows}; }

    // Writes header and rows in one transaction; a new document gets the next number of the current fiscal year, which is
    // kept here. Throws KAccountingError, with nothing changed, for a problem, a date outside the fiscal year, a
    // closed database, a person who is gone, and when the document to be changed is gone, was not written by hand or is of
    // another fiscal year.
    void save(int database = 0);
    // For a user who has been editing the document: this is what the window shows, opened what it began with, both as
    // DocumentValues. What only one side changed is kept of both; the rows count as one field. Also throws RowChanged when
    // both sides changed the same, and when the document is gone; num 0 saves a new one.
    void save(const OpenedRow &opened, int database = 0);
    // A stored document of any kind; num stays 0 when there is none.
    static ManualDocument load(int num, int fiscalYear, int database = 0);
    // Throws as save does. headerKey: the document that the user means, by the key of its header, because a number may go from a
    // deleted document to a new one; 0: whichever has the number.
    static void remove(int num, int fiscalYear, qint32 headerKey = 0, int database = 0);
    // Why the document may not be changed or deleted by hand, in words for the user; empty when it may.
    static QString changeRefusal(int num, int fiscalYear, int database = 0);

    bool operator==(const ManualDocument &) const = default;

private:
    void requireSavable(int database) const;
    void write(const OpenedRow *opened, int database);
    void change(const OpenedRow *opened, int database);
    void saveWhole(const OpenedRow *opened, int database);
};
