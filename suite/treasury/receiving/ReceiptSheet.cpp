// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receiving/ReceiptSheet.h"

#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

PaperSheet::Fact line(const QString &label, const QString &text, bool strong = false)
{
    return {.label = label, .text = text, .isStrong = strong, .isWide = true};
}

}

QString ReceiptSheet::titleOf(const ReceiptDetails &receipt)
{
    return u"رسید "_s + CTblReceipts::kindName(receipt.kind);
}

PaperSheet ReceiptSheet::of(const ReceiptDetails &receipt, const QString &office, const QString &moneyUnit)
{
    const QString words = amountInWords(receipt.amount);
    const bool paid = receipt.isPaid();
    PaperSheet sheet;
    sheet.kind = u"ReceiptPaper"_s;
    sheet.title = titleOf(receipt);
    sheet.fileName = u"%1 %2"_s.arg(sheet.title).arg(receipt.number);
    sheet.marks = {{u"شماره :"_s, QString::number(receipt.number)}, {u"تاریخ :"_s, shamsiText(receipt.date.date())}};
    sheet.facts = {line(paid ? u"پرداخت شد به :"_s : u"دریافت شد از :"_s, receipt.person, true),
                   line(u"مبلغ :"_s, u"%1 %2"_s.arg(DToMoney(receipt.amount), moneyUnit), true),
                   line(u"به حروف :"_s, words.isEmpty() ? QString() : u"%1 %2"_s.arg(words, moneyUnit)),
                   line(u"روش :"_s, receipt.methodText()),
                   line(u"بابت :"_s, receipt.purpose),
                   line(u"شرح :"_s, receipt.desc == u"بابت "_s + receipt.purpose ? QString() : receipt.desc)};
    if (receipt.isVoid())
        sheet.facts.append(line(u"ابطال :"_s, receipt.voidText()));
    sheet.signatures = {{u"دریافت‌کننده"_s, paid ? receipt.person : office}, {u"پرداخت‌کننده"_s, paid ? office : receipt.person}};
    sheet.foot = u"ثبت‌کننده : %1"_s.arg(receipt.user) + (receipt.docNum > 0 ? u"     سند حسابداری : %1"_s.arg(receipt.docNum) : QString());
    sheet.state = receipt.status != CTblReceipts::valid ? CTblReceipts::statusName(receipt.status) : QString();
    sheet.isSlip = true;
    sheet.copies = {paid ? u"نسخه دریافت‌کننده"_s : u"نسخه پرداخت‌کننده"_s, u"نسخه دفتر"_s};
    return sheet;
}
