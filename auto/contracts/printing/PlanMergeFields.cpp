// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/PlanMergeFields.h"

#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <algorithm>

using namespace Qt::StringLiterals;

DocumentParts::Table planTable(const QList<InstalmentForPrinting> &plan, int moneyDecimals, const QString &moneyUnit)
{
    DocumentParts::Table table{{u"PlanNum"_s, u"PlanDate"_s, u"PlanAmount"_s, u"PlanWords"_s, u"PlanDesc"_s, u"PlanCheque"_s}, {}};
    for (const InstalmentForPrinting &instalment : plan)
        table.rows.append({LToStr(instalment.number), shamsiText(instalment.due), DToMoney(instalment.amount, moneyDecimals),
                           QString(amountInWords(instalment.amount) + u' ' + moneyUnit).trimmed(), instalment.description, instalment.cheque});
    return table;
}

MergeBatch planMergeFields(const QList<InstalmentForPrinting> &plan, int moneyDecimals, const QString &moneyUnit)
{
    double total = 0;
    QDate first, last;
    for (const InstalmentForPrinting &instalment : plan) {
        total += instalment.amount;
        first = first.isValid() ? std::min(first, instalment.due) : instalment.due;
        last = last.isValid() ? std::max(last, instalment.due) : instalment.due;
    }
    const bool any = !plan.isEmpty();
    const auto field = [any](const QString &name, const QString &value) { return MergeField{name, any && !value.isEmpty() ? value : u" "_s, any && !value.isEmpty()}; };
    return {field(u"PlanCount"_s, LToStr(plan.size())), field(u"PlanTotal"_s, DToMoney(total, moneyDecimals)),
            field(u"PlanTotalWords"_s, QString(amountInWords(total) + u' ' + moneyUnit).trimmed()), field(u"PlanFirstDate"_s, shamsiText(first)),
            field(u"PlanLastDate"_s, shamsiText(last))};
}
