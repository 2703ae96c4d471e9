// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/whatif/DealEstimate.h"

#include "auto/cars/register/editor/ProfitAndLoss.h"
#include "auto/contracts/figures/InstalmentSale.h"

namespace {

void change(CommissionFields &figures, CommissionField field, double value, const CommissionTiers &tiers)
{
    setCommissionValue(figures, field, value);
    afterChange(field, figures, tiers);
}

CommissionFields figuresOf(const DealTerms &terms, bool byHand)
{
    CommissionFields figures;
    for (CommissionParty *party : {&figures.first, &figures.second}) {
        party->taxPercent = terms.taxPercent;
        party->dutyPercent = terms.dutyPercent;
    }
    change(figures, CommissionField::Amount, terms.price, terms.tiers);
    if (byHand)
        change(figures, CommissionField::Commission, terms.commissionByHand, terms.tiers);
    change(figures, CommissionField::FirstDiscountPercent, terms.sellerDiscountPercent, terms.tiers);
    change(figures, CommissionField::SecondDiscountPercent, terms.buyerDiscountPercent, terms.tiers);
    return figures;
}

std::optional<InstalmentPlan> planOf(const DealTerms &terms)
{
    InstalmentTerms wanted = terms.instalments;
    wanted.principal = InstalmentSale::amountLeft(terms.price, terms.paidAtOnce, 0);
    if (wanted.count == 0 || problemOf(wanted) != InstalmentProblem::None)
        return std::nullopt;
    return instalmentPlan(wanted);
}

}

DealEstimate DealEstimate::of(const DealTerms &terms)
{
    DealEstimate deal;
    deal.isCommissionByHand = !tierCommission(terms.price, terms.tiers);
    deal.figures = figuresOf(terms, deal.isCommissionByHand);
    deal.sellerGets = terms.price - deal.figures.first.pays;
    deal.buyerPays = terms.price + deal.figures.second.pays;
    deal.isOwnCar = terms.purchase > 0;
    deal.saleMargin = profitAndLoss({terms.price, terms.purchase, terms.expenses, terms.notary, 0});
    deal.commissionMargin = 2 * deal.figures.commission - deal.figures.first.discount - deal.figures.second.discount;
    deal.plan = planOf(terms);
    return deal;
}
