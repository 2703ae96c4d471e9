// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/DocumentRow.h"
#include "suite/accounting/invoices/Invoice.h"

// Rules of an invoice's accounting document: its header text and its rows.

// An invoice as its document sees it. Amounts in the money unit.
struct InvoiceForDocument
{
    int type = Invoice::sale;
    bool returned = false;
    int num = 0;
    int personID = 0;
    QString personName;
    double sum = 0; // of the lines
    double discount = 0;
    double tax = 0;
    double duty = 0;
};

// "فاکتور فروش ش :12", or that a sale or purchase was returned.
TZACCOUNTINGDATA_EXPORT QString invoiceDocumentDescription(int type, bool returned, int num);

// The rows, debit before credit; zero amounts make no row.
//   sale      person (what is owed), discount on sales / service income (the lines' sum), tax payable, duty payable
//   purchase  service expense (the lines' sum), tax expense, duty expense / person (what is owed), discount on purchases
//   a return  the same with both sides changed
TZACCOUNTINGDATA_EXPORT QList<DocumentRow> invoiceDocumentRows(const InvoiceForDocument &invoice);
