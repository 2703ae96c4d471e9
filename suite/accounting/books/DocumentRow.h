// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/chart/AccountBalance.h"

#include <QList>
#include <QStringList>

// A row of an accounting document, whatever the document is about, without its place in one. Amounts in the money unit,
// never negative, and only one of them is above 0.
struct DocumentRow
{
    int account = 0;  // subsidiary (six digits) or detail account; what stands above it follows
    int personID = 0; // 0: none, as on every account but that of the persons
    double debit = 0;
    double credit = 0;
    QString description;

    bool operator==(const DocumentRow &) const = default;
};

// The totals of the two sides of the rows; a document balances when they are equal.
TZACCOUNTINGDATA_EXPORT AccountBalance documentSum(const QList<DocumentRow> &rows);
// A line of text per row, its parts by tabs: account, person, debit, credit and description. Amounts come back from it as they were.
TZACCOUNTINGDATA_EXPORT QStringList documentLines(const QList<DocumentRow> &rows);
