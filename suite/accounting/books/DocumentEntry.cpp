// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/DocumentEntry.h"

#include "suite/accounting/books/chart/AccountCode.h"
#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/books/CTblDocuments.h"

void DocumentEntries::write(int docNum, int fiscalYear, const QList<DocumentEntry> &entries, int database)
{
    for (const DocumentEntry &entry : entries) {
        const bool isDetail = AccountCode::levelOf(entry.account) == AccountLevel::Tafsily;
        const int subsidiary = isDetail ? AccountCode::parentOf(entry.account) : entry.account;
        CTblDocs::AddRecord({docNum, fiscalYear, AccountCode::parentOf(subsidiary), subsidiary, isDetail ? entry.account : 0,
                             entry.personID, entry.debit, entry.credit, entry.desc},
                            database);
    }
    CTblDocuments::RequireBalanced(docNum, fiscalYear, database);
}
