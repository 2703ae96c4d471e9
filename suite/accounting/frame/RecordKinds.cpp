// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/RecordKinds.h"

const std::array<QString, RecordKind::count> &RecordKind::names()
{
    static const auto list = [] {
        std::array<QString, count> texts;
        texts[Person] = QStringLiteral("اشخاص");
        texts[Item] = QStringLiteral("پارامترهای ورودی");
        texts[Department] = QStringLiteral("شعبه ها");
        texts[User] = QStringLiteral("کاربران");
        texts[Document] = QStringLiteral("اسناد حسابداری");
        texts[DocumentRow] = QStringLiteral("ردیف های سند");
        texts[SaleInvoice] = QStringLiteral("فاکتور فروش");
        texts[PurchaseInvoice] = QStringLiteral("فاکتور خرید");
        texts[InvoiceLine] = QStringLiteral("ردیف های فاکتور");
        texts[Receipt] = QStringLiteral("دریافت ها");
        texts[Service] = QStringLiteral("خدمات");
        texts[HesabKol] = QStringLiteral("حساب های کل");
        texts[HesabMoeen] = QStringLiteral("حساب های معین");
        texts[HesabTafsily] = QStringLiteral("حساب های تفصیلی");
        texts[Reminder] = QStringLiteral("یادآوری ها");
        texts[AutomobilInformation] = QStringLiteral("گالری اتومبیل");
        texts[AutomobilContract] = QStringLiteral("قرارداد اتومبیل");
        texts[AutomobilDemandReminder] = QStringLiteral("یادآوری تقاضای اتومبیل");
        return texts;
    }();
    return list;
}
