// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receiving/ReceiptDocumentRows.h"

#include "suite/accounting/books/chart/Accounts.h"

QList<DocumentRow> receiptDocumentRows(const ReceiptForDocument &receipt)
{
    const double in = receipt.paid ? 0 : receipt.amount;
    const double out = receipt.paid ? receipt.amount : 0;
    const DocumentRow money{receipt.account, 0, in, out, receipt.desc};
    const DocumentRow person{Accounts::persons, receipt.personID, out, in, receipt.desc};
    return receipt.paid ? QList{person, money} : QList{money, person};
}
