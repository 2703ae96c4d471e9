// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"

#include <QList>
#include <QString>

// A row of an accounting document before it stands in one.
struct DocumentEntry
{
    int account = 0;  // subsidiary (six digits) or detail account; what stands above it follows
    int personID = 0; // on the persons account only
    double debit = 0;
    double credit = 0;
    QString desc;

    bool operator==(const DocumentEntry &) const = default;
};

namespace DocumentEntries {

// Writes the rows into an existing document and requires that it balances; rows that it has already stay. Joins the caller's
// transaction. Throws KAccountingError, CMySQLException.
TZACCOUNTING_EXPORT void write(int docNum, int fiscalYear, const QList<DocumentEntry> &entries, int database = 0);

}
