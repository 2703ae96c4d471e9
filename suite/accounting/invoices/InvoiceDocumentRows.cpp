// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/invoices/InvoiceDocumentRows.h"

#include "suite/accounting/books/chart/Accounts.h"
#include "suite/utility/values/Money.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The accounts of one kind of invoice. On the person's side are what is owed and the discount, on the other what the
// invoice is about and its levies.
struct InvoiceAccounts
{
    int subject;
    int discount;
    int tax;
    int duty;
    bool personOwes; // before a return changes the sides
};

constexpr InvoiceAccounts saleAccounts{Accounts::serviceIncome, Accounts::saleDiscount, Accounts::taxPayable,
                                       Accounts::dutyPayable, true};
constexpr InvoiceAccounts purchaseAccounts{Accounts::serviceExpense, Accounts::purchaseDiscount, Accounts::taxExpense,
                                           Accounts::dutyExpense, false};

}

QString invoiceDocumentDescription(int type, bool returned, int num)
{
    const bool isPurchase = type == Invoice::purchase;
    const QString name = returned ? (isPurchase ? u"برگشت از خرید"_s : u"برگشت از فروش"_s)
                                  : (isPurchase ? u"فاکتور خرید"_s : u"فاکتور فروش"_s);
    return name + u" ش :"_s + IToStr(num);
}

QList<DocumentRow> invoiceDocumentRows(const InvoiceForDocument &invoice)
{
    const InvoiceAccounts &accounts = invoice.type == Invoice::purchase ? purchaseAccounts : saleAccounts;
    const bool personDebit = accounts.personOwes != invoice.returned;
    const QString text = invoiceDocumentDescription(invoice.type, invoice.returned, invoice.num);
    const QString full = text + u' ' + invoice.personName;
    QList<DocumentRow> rows;
    const auto add = [&rows](int account, int personID, bool debit, double amount, const QString &desc) {
        if (amount > 0 && !IsEquals(amount, 0))
            rows.append({account, personID, debit ? amount : 0, debit ? 0 : amount, desc});
    };
    add(Accounts::persons, invoice.personID, personDebit, invoice.sum - invoice.discount + invoice.tax + invoice.duty, text);
    add(accounts.discount, 0, personDebit, invoice.discount, u"تخفیف "_s + full);
    add(accounts.subject, 0, !personDebit, invoice.sum, full);
    add(accounts.tax, 0, !personDebit, invoice.tax, u"مالیات ارزش افزوده "_s + full);
    add(accounts.duty, 0, !personDebit, invoice.duty, u"عوارض "_s + full);
    std::stable_partition(rows.begin(), rows.end(), [](const DocumentRow &row) { return row.debit > 0; });
    return rows;
}
