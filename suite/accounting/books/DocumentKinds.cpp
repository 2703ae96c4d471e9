// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/DocumentKinds.h"

#include "suite/accounting/books/chart/Accounts.h"

namespace {

struct Kind
{
    int kind;
    QString name;
    QString owner; // what is changed instead
};

const Kind *find(int kind)
{
    static const Kind kinds[] = {
        {Accounts::documentKindManual, QStringLiteral("دستی"), {}},
        {Accounts::documentKindReceipt, QStringLiteral("دریافت نقدی"), QStringLiteral("دریافت نقدی")},
        {Accounts::documentKindSale, QStringLiteral("فاکتور فروش"), QStringLiteral("فاکتور فروش")},
        {Accounts::documentKindPurchase, QStringLiteral("فاکتور خرید"), QStringLiteral("فاکتور خرید")},
        {Accounts::documentKindContract, QStringLiteral("قرارداد"), QStringLiteral("قرارداد")},
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
    return known ? known->name : QStringLiteral("سایر");
}

QString DocumentKinds::refusal(int kind)
{
    const Kind *known = find(kind);
    if (!known)
        return QStringLiteral("این سند را برنامه ثبت کرده است و دستی تغییر نمی‌کند.");
    if (known->owner.isEmpty())
        return {};
    return QStringLiteral("این سند از «%1» ثبت شده است و فقط از همان‌جا تغییر می‌کند.").arg(known->owner);
}
