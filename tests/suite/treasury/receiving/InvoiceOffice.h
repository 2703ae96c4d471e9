// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/invoices/CTblFactors.h"
#include "suite/accounting/invoices/InvoicePosting.h"
#include "suite/treasury/receiving/InvoiceReceiptOwner.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "tests/suite/accounting/TestOffice.h"

#include <algorithm>

// An office with two persons whose invoices are paid.
class InvoiceOffice : public TestOffice
{
public:
    const QDateTime day = QDateTime(QDate(2026, 11, 20), QTime(0, 0), Qt::UTC);
    int ali = 0;
    int pars = 0;

    InvoiceOffice()
    {
        InvoiceReceiptOwner::enter();
        GetDBSetting()->SetFiscalYear(1405);
        GetDBSetting()->SetFiscalYearOpeningDate(QDateTime(QDate(2000, 1, 1), QTime(0, 0), Qt::UTC));
        GetDBSetting()->SetFiscalYearClosingDate(QDateTime(QDate(2100, 1, 1), QTime(0, 0), Qt::UTC));
        ali = addPerson(u"علی رضایی"_s);
        pars = addPerson(u"پارس خودرو"_s);
    }

    void clear()
    {
        GetDBSetting()->SetClosedDB(false);
        GetDBSetting()->Login(admin);
        for (const char *table : {"Receipts", "Cheques", "Documents", "Docs", "Factors", "FactorStuffs"})
            database.run(u"DELETE FROM %1"_s.arg(QLatin1String(table)));
        for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo}) {
            dialog->answerAll(false);
            dialog->answerAll(true);
        }
    }

    // 1000 less 100, and 54 and 36 on it: 990. The number.
    int invoice(int type, int person, bool returned = false) const
    {
        Invoice invoice;
        invoice.type = type;
        invoice.returned = returned;
        invoice.personID = person;
        invoice.date = day;
        invoice.lines = {{0, u"کارشناسی خودرو"_s, 1, 1000}};
        invoice.discount = 100;
        invoice.tax = 54;
        invoice.duty = 36;
        return InvoicePosting::save(invoice).num;
    }

    static QList<OpenItem> openItems(int person, CTblReceipts::Kind kind = CTblReceipts::received) { return ReceiptOwners::openItems(person, kind); }

    // What the person's invoices have open in that direction, as "1=990 2=500".
    static QString open(int person, CTblReceipts::Kind kind = CTblReceipts::received)
    {
        QStringList texts;
        for (const OpenItem &item : openItems(person, kind))
            texts.append(u"%1=%2"_s.arg(item.purpose.recordID).arg(item.rest));
        std::ranges::sort(texts);
        return texts.join(u' ');
    }

    static ReceiptPurpose purposeOf(int person, int invoice, CTblReceipts::Kind kind = CTblReceipts::received)
    {
        for (const OpenItem &item : openItems(person, kind)) {
            if (item.purpose.recordID == invoice)
                return item.purpose;
        }
        return {};
    }

    // In cash; the key.
    int take(int person, double amount, const ReceiptPurpose &purpose = {}, CTblReceipts::Kind kind = CTblReceipts::received) const
    {
        return ReceiptPosting::save({.kind = kind, .personID = person, .date = day, .account = Accounts::cash, .parts = {{amount, u"شرح"_s, purpose}}})
            .constFirst()
            .receiptID;
    }
};
