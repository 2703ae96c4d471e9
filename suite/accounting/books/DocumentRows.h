// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"

#include <QHash>
#include <QList>
#include <QPair>
#include <QString>

// Reads accounting documents for showing them.
namespace DocumentRows {

// A row with the names behind its codes. Amounts in the money unit.
struct Row
{
    int id = 0;
    int account = 0; // the deepest one that the row stands on: its detail account, else the subsidiary one
    QString accountName;
    int personID = 0;
    QString person; // shown name, empty for a row on no person
    QString description;
    double debit = 0;
    double credit = 0;
};

struct Totals
{
    double debit = 0;
    double credit = 0;
};

// A document by fiscal year and number.
using DocumentKey = QPair<int, int>;

// In the order in which they were written.
TZACCOUNTING_EXPORT QList<Row> read(int num, int fiscalYear, int database = 0);
TZACCOUNTING_EXPORT Totals totals(const QList<Row> &rows);
// Sum of the debit side of each document, in one statement; documents without rows are left out.
TZACCOUNTING_EXPORT QHash<DocumentKey, double> amounts(const QList<DocumentKey> &documents, int database = 0);
// Fiscal years that hold documents, the latest first.
TZACCOUNTING_EXPORT QList<int> fiscalYears(int database = 0);

}
