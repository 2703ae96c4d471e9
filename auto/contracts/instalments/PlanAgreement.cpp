// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/PlanAgreement.h"

#include "suite/utility/values/Money.h"

#include <cmath>

using namespace Qt::StringLiterals;

PlanAgreement PlanAgreement::of(const PlanBasis &contract, const PlanFigures &plan, int decimals)
{
    if (!contract.isInstalmentSale)
        return {true, false, false};
    const double half = 0.5 * std::pow(10, -decimals);
    return {false, std::abs(contract.left - plan.principal) >= half, plan.personID && *plan.personID != contract.buyerID};
}

QStringList PlanAgreement::sentences(const PlanBasis &contract, const PlanFigures &plan, const QString &moneyUnit, int decimals) const
{
    QStringList said;
    if (type)
        said.append(u"این قرارداد فروش اقساطی نیست، ولی برنامه اقساط دارد."_s);
    if (amount)
        said.append(u"مانده بهای قرارداد %1 %3 است، ولی برنامه اقساط آن برای %2 %3 محاسبه شده است."_s.arg(
            DToMoney(contract.left, decimals), DToMoney(plan.principal, decimals), moneyUnit));
    if (buyer)
        said.append(u"اقساط پرداخت‌نشده به نام خریدار این قرارداد نیست."_s);
    return said;
}

QList<PlanChoice> PlanAgreement::choices(const PlanBasis &contract, const PlanFigures &plan) const
{
    const bool nothingToSplit = type || contract.left < 0 || IsEquals(contract.left, 0);
    QList<PlanChoice> offered;
    if (!plan.anyReceived && nothingToSplit)
        offered.append(PlanChoice::Delete);
    if (!plan.anyReceived && !nothingToSplit)
        offered.append(PlanChoice::NewPlan);
    // A changed buyer alone takes over what is open as it is.
    if (!type && plan.hasOpen && plan.receivedIsWithin && (plan.anyReceived || !nothingToSplit))
        offered.append(PlanChoice::Spread);
    offered.append(PlanChoice::Leave);
    return offered;
}
