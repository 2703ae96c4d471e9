// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/RecordKinds.h"

using namespace Qt::StringLiterals;

const std::array<QString, RecordKind::count> &RecordKind::names()
{
    static const auto list = [] {
        std::array<QString, count> texts;
        texts[Person] = u"اشخاص"_s;
        texts[Item] = u"پارامترهای ورودی"_s;
        texts[Department] = u"شعبه ها"_s;
        texts[User] = u"کاربران"_s;
        texts[Document] = u"اسناد حسابداری"_s;
        texts[DocumentRow] = u"ردیف های سند"_s;
        texts[SaleInvoice] = u"فاکتور فروش"_s;
        texts[PurchaseInvoice] = u"فاکتور خرید"_s;
        texts[InvoiceLine] = u"ردیف های فاکتور"_s;
        texts[Receipt] = u"دریافت ها و پرداخت ها"_s;
        texts[Service] = u"خدمات"_s;
        texts[HesabKol] = u"حساب های کل"_s;
        texts[HesabMoeen] = u"حساب های معین"_s;
        texts[HesabTafsily] = u"حساب های تفصیلی"_s;
        texts[Cheque] = u"چک ها"_s;
        texts[Reminder] = u"یادآوری ها"_s;
        texts[AutomobilInformation] = u"گالری اتومبیل"_s;
        texts[AutomobilContract] = u"قرارداد اتومبیل"_s;
        texts[AutomobilDemandReminder] = u"یادآوری تقاضای اتومبیل"_s;
        return texts;
    }();
    return list;
}
