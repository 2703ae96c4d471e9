// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/DocumentRow.h"

#include <QHash>
#include <QPair>

// Reads accounting documents for showing them.
namespace DocumentRows {

// A stored row with the names behind its codes.
struct Named
{
    int id = 0;
    DocumentRow row; // on the deepest account that it stands on: its detail account, else the subsidiary one
    QString accountName;
    QString person; // shown name, empty for a row on no person
};

// A document by fiscal year and number.
using DocumentKey = QPair<int, int>;

// In the order in which they were written.
TZACCOUNTINGDATA_EXPORT QList<Named> read(int num, int fiscalYear, int database = 0);
// Sum of the debit side of each document, in one statement; documents without rows are left out.
TZACCOUNTINGDATA_EXPORT QHash<DocumentKey, double> amounts(const QList<DocumentKey> &documents, int database = 0);
// Fiscal years that hold documents, the latest first.
TZACCOUNTINGDATA_EXPORT QList<int> fiscalYears(int database = 0);

}
