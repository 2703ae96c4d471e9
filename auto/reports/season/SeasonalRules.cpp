// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/SeasonalRules.h"

namespace {

constexpr int paysTheCommission = 0;
constexpr int paysNoCommission = 1;

}

bool SeasonalRules::isSmall(double commission, double minimumAmount)
{
    return minimumAmount > commission;
}

void SeasonalRules::setFigures(SeasonalRow &row, double commission, const ContractParty &party)
{
    row.tax = party.tax + party.duty;
    switch (party.mark) {
    case paysTheCommission:
        row.amount = commission;
        row.discount = party.discount;
        row.total = row.tax + commission - party.discount;
        break;
    case paysNoCommission:
        row.amount = 0;
        row.discount = 0;
        row.total = row.tax;
        break;
    default:
        row.amount.reset();
        row.discount.reset();
        row.total.reset();
        break;
    }
}

void SeasonalRules::SmallContracts::add(const Contract &contract)
{
    Sums &sums = m_sums[contract.returned ? 1 : 0];
    sums.amount += 2 * contract.commission;
    sums.tax += contract.first.tax + contract.second.tax;
    sums.duty += contract.first.duty + contract.second.duty;
    sums.discount += contract.first.discount + contract.second.discount;
}

QVector<SeasonalRow> SeasonalRules::SmallContracts::rows() const
{
    QVector<SeasonalRow> rows;
    for (const bool returned : {false, true}) {
        const Sums &sums = m_sums[returned ? 1 : 0];
        if (sums.amount <= 0)
            continue;
        SeasonalRow row;
        row.source = SeasonalRow::Source::SmallSum;
        row.returned = returned;
        row.amount = sums.amount;
        row.tax = sums.tax;
        row.discount = sums.discount;
        row.total = sums.amount + sums.tax + sums.duty - sums.discount;
        rows.append(row);
    }
    return rows;
}

bool SeasonalRules::isLineListed(double count, double price, double minimumAmount)
{
    return count >= 0 && price >= 0 && count * price >= minimumAmount;
}

void SeasonalRules::setFigures(SeasonalRow &row, double count, double price, const Invoice &invoice)
{
    const double amount = count * price;
    const double share = invoice.amount == 0 ? 0 : amount / invoice.amount;
    const double discount = share * invoice.discount;
    row.amount = amount;
    row.tax = share * invoice.tax;
    row.duties = share * invoice.duty;
    row.discount = discount;
    row.total = amount + row.tax + row.duties - discount;
}
