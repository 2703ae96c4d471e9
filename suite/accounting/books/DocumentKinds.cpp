// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/DocumentKinds.h"

#include "suite/accounting/books/chart/Accounts.h"

using namespace Qt::StringLiterals;

namespace {

struct Kind
{
    int kind;
    QString name;
    QString owner; // what is changed instead
};

const Kind *find(int kind)
{
    static const QString receiptList = u"دریافت‌ها و پرداخت‌ها"_s;
    static const Kind kinds[] = {
        {Accounts::documentKindManual, u"دستی"_s, {}},
        {Accounts::documentKindReceipt, u"دریافت"_s, receiptList},
        {Accounts::documentKindPayment, u"پرداخت"_s, receiptList},
        {Accounts::documentKindCheque, u"چک"_s, u"چک‌ها"_s},
        {Accounts::documentKindReversal, u"ابطال دریافت و پرداخت"_s, receiptList},
        {Accounts::documentKindSale, u"فاکتور فروش"_s, u"فاکتور فروش"_s},
        {Accounts::documentKindPurchase, u"فاکتور خرید"_s, u"فاکتور خرید"_s},
        {Accounts::documentKindContract, u"قرارداد"_s, u"قرارداد"_s},
    };
    for (const Kind &known : kinds) {
        if (known.kind == kind)
            return &known;
    }
    return nullptr;
}

}

QString DocumentKinds::name(int kind)
{
    const Kind *known = find(kind);
    return known ? known->name : u"سایر"_s;
}

QString DocumentKinds::refusal(int kind)
{
    const Kind *known = find(kind);
    if (!known)
        return u"این سند را برنامه ثبت کرده است و دستی تغییر نمی‌کند."_s;
    if (known->owner.isEmpty())
        return {};
    return u"این سند از «%1» ثبت شده است و فقط از همان‌جا تغییر می‌کند."_s.arg(known->owner);
}
