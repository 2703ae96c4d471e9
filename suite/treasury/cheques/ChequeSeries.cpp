// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/cheques/ChequeSeries.h"

#include "suite/utility/values/ShamsiDate.h"
#include "suite/utility/values/TextStandard.h"

QString ChequeSeries::nextNumber(const QString &last)
{
    QString number = toAsciiDigits(last.trimmed());
    qsizetype at = number.size() - 1;
    const auto isDigit = [&](qsizetype index) { return index >= 0 && number.at(index) >= u'0' && number.at(index) <= u'9'; };
    if (!isDigit(at))
        return {};
    for (; isDigit(at) && number.at(at) == u'9'; --at)
        number[at] = u'0';
    if (isDigit(at))
        number[at] = QChar(number.at(at).unicode() + 1);
    else
        number.insert(at + 1, u'1');
    return number;
}

Cheque ChequeSeries::next(const Cheque &last)
{
    Cheque cheque = last;
    cheque.sayad.clear();
    cheque.number = nextNumber(last.number);
    cheque.due = {};
    if (const QDate day = addShamsiMonths(last.due.date(), 1); day.isValid())
        cheque.due = QDateTime(day, QTime(0, 0), Qt::UTC);
    return cheque;
}
