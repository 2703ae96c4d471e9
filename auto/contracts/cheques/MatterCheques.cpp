// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/cheques/MatterCheques.h"

#include "suite/treasury/cheques/ChequeSeries.h"
#include "suite/utility/values/Money.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

// Of a book's leaves one after the other the first and the last; the page has little room.
QString numbersText(const QStringList &numbers)
{
    QStringList texts;
    for (qsizetype first = 0; first < numbers.size();) {
        qsizetype last = first;
        while (last + 1 < numbers.size() && numbers.at(last + 1) == ChequeSeries::nextNumber(numbers.at(last)))
            ++last;
        if (last - first > 1)
            texts.append(u"%1 تا %2"_s.arg(numbers.at(first), numbers.at(last)));
        else
            texts += numbers.mid(first, last - first + 1);
        first = last + 1;
    }
    return texts.join(u"، "_s);
}

}

QList<MatterCheques::FieldText> MatterCheques::texts(const QList<Part> &cheques)
{
    const auto different = [&](QString Part::*what) {
        QStringList texts;
        for (const Part &cheque : cheques) {
            if (!(cheque.*what).isEmpty() && !texts.contains(cheque.*what))
                texts.append(cheque.*what);
        }
        return texts;
    };
    const auto joined = [&](QString Part::*what) { return different(what).join(u"، "_s); };
    double sum = 0;
    for (const Part &cheque : cheques)
        sum += cheque.amount;
    return {
        {u"sCheckCount"_s, cheques.isEmpty() ? QString() : QString::number(cheques.size())},
        {u"dAgreeAmount"_s, cheques.isEmpty() ? QString() : DToMoney(sum)},
        {u"sCheckNum"_s, numbersText(different(&Part::number))},
        {u"sBankName"_s, joined(&Part::bank)},
        {u"sBranchName"_s, joined(&Part::branch)},
        {u"sBranchCode"_s, joined(&Part::branchCode)},
    };
}
