// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/invoices/Invoice.h"

class OpenedRow;

// Saves invoices, each with its lines and its accounting document in one transaction.
namespace InvoicePosting {

struct Saved
{
    int num = 0;
    int docNum = 0;
    int fiscalYear = 0;
};

// Writes the invoice; num 0 adds a new one in the current fiscal year and department, another number changes that one: its
// type stays, its lines are written anew, its document keeps number and year and gets new rows. Throws KAccountingError, with nothing changed,
// for a problem of the invoice, a date outside the fiscal year, a closed database, a person or service that is
// gone, when the invoice that is to be changed is gone, void, or of another fiscal year, for another person than the one whose
// money stands against it, and for less than that money.
Saved TZACCOUNTINGDATA_EXPORT save(const Invoice &invoice, int database = 0);
// For a user who has been editing the invoice: edited is what the window shows, opened what it began with, both as
// InvoiceValues. What only one side changed is kept of both; the lines and figures count as one field. Also throws RowChanged
// when both sides changed the same, and when the invoice is gone; num 0 saves a new one.
Saved TZACCOUNTINGDATA_EXPORT save(const Invoice &edited, const OpenedRow &opened, int database = 0);

// How much money stands against an invoice, received or paid, in the suite's money unit. Asked in the unit that changes the invoice,
// which is locked by then, and before it for a message.
using MoneyTaken = double (*)(int num, int database);
// Whoever keeps the receipts hands it in; without it no money stands against any invoice.
void TZACCOUNTINGDATA_EXPORT setMoneyTaken(MoneyTaken taken);

// Makes the invoice void: it keeps its number and lines, its document keeps its number, loses its rows and is void too.
// Throws as save does for one that is gone, already void, or of another fiscal year, and while money stands against it.
void TZACCOUNTINGDATA_EXPORT makeVoid(int num, int database = 0);

// A stored invoice; num stays 0 when there is none.
TZACCOUNTINGDATA_EXPORT Invoice load(int num, int database = 0);

// Why the invoice may not be changed or made void, in words for the user; empty when it may.
TZACCOUNTINGDATA_EXPORT QString changeRefusal(int num, int database = 0);
// The same for making it void, which money that stands against it forbids too.
TZACCOUNTINGDATA_EXPORT QString voidRefusal(int num, int database = 0);

}
