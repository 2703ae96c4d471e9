// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/DocumentRow.h"
#include "suite/treasury/TzTreasuryDataExport.h"

// What the document of a receipt or payment sees.
struct ReceiptForDocument
{
    bool paid = false;
    int personID = 0;
    double amount = 0;
    int account = 0; // where the money is: cash box, bank account, cheques in hand, cheques payable
    QString desc;
};

// Received: debit where the money is, credit the person. Paid: the other way round.
TZTREASURYDATA_EXPORT QList<DocumentRow> receiptDocumentRows(const ReceiptForDocument &receipt);
