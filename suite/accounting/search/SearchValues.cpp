// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/search/SearchValues.h"

#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDate>

using namespace Qt::StringLiterals;

QString SearchValues::day(const QString &stored)
{
    const QDate date = QDate::fromString(stored.left(10), Qt::ISODate);
    if (!date.isValid())
        return {};
    const ShamsiDate shamsi = GetShamsi(date);
    return u"%1 %2 %3"_s.arg(QString::number(shamsi.day), shamsiMonthName(shamsi.month), QString::number(shamsi.year));
}

QString SearchValues::money(const QString &stored)
{
    const double amount = stored.toDouble();
    return amount == 0 ? QString() : DToMoney(amount);
}

QString SearchValues::joined(QStringList parts)
{
    parts.removeAll(QString());
    return parts.join(u"، "_s);
}

QString SearchValues::labelled(const QString &label, const QString &text)
{
    return text.isEmpty() ? QString() : label + u' ' + text;
}
