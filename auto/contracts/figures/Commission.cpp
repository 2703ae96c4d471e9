// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/figures/Commission.h"

#include "suite/utility/values/Money.h"

namespace {

double *figure(CommissionFields &fields, CommissionField field)
{
    switch (field) {
    case CommissionField::Amount: return &fields.amount;
    case CommissionField::Commission: return &fields.commission;
    case CommissionField::PerPartyTotal: return &fields.perPartyTotal;
    case CommissionField::FirstTaxPercent: return &fields.first.taxPercent;
    case CommissionField::FirstTax: return &fields.first.tax;
    case CommissionField::FirstDutyPercent: return &fields.first.dutyPercent;
    case CommissionField::FirstDuty: return &fields.first.duty;
    case CommissionField::FirstDiscountPercent: return &fields.first.discountPercent;
    case CommissionField::FirstDiscount: return &fields.first.discount;
    case CommissionField::FirstPays: return &fields.first.pays;
    case CommissionField::SecondTaxPercent: return &fields.second.taxPercent;
    case CommissionField::SecondTax: return &fields.second.tax;
    case CommissionField::SecondDutyPercent: return &fields.second.dutyPercent;
    case CommissionField::SecondDuty: return &fields.second.duty;
    case CommissionField::SecondDiscountPercent: return &fields.second.discountPercent;
    case CommissionField::SecondDiscount: return &fields.second.discount;
    case CommissionField::SecondPays: return &fields.second.pays;
    case CommissionField::FirstKind:
    case CommissionField::SecondKind:
    case CommissionField::Count: break;
    }
    return nullptr;
}

// The names of one party's figures.
struct PartyFields
{
    CommissionField taxPercent, tax, dutyPercent, duty, discountPercent, discount, pays;
};

constexpr PartyFields firstParty{CommissionField::FirstTaxPercent, CommissionField::FirstTax,
                                 CommissionField::FirstDutyPercent, CommissionField::FirstDuty,
                                 CommissionField::FirstDiscountPercent, CommissionField::FirstDiscount,
                                 CommissionField::FirstPays};
constexpr PartyFields secondParty{CommissionField::SecondTaxPercent, CommissionField::SecondTax,
                                  CommissionField::SecondDutyPercent, CommissionField::SecondDuty,
                                  CommissionField::SecondDiscountPercent, CommissionField::SecondDiscount,
                                  CommissionField::SecondPays};

class Recomputation
{
public:
    Recomputation(CommissionFields &fields, const CommissionTiers &tiers)
        : m_fields(fields)
        , m_tiers(tiers) { }

    void dependantsOf(CommissionField changed)
    {
        switch (changed) {
        case CommissionField::Amount: return amountChanged();
        case CommissionField::Commission: return commissionChanged();
        case CommissionField::PerPartyTotal: return totalChanged();
        case CommissionField::FirstKind: return kindChanged(firstParty, m_fields.first);
        case CommissionField::FirstTaxPercent: return recomputeTax(firstParty, m_fields.first);
        case CommissionField::FirstDutyPercent: return recomputeDuty(firstParty, m_fields.first);
        case CommissionField::FirstTax:
        case CommissionField::FirstDuty: return taxOrDutyChanged(firstParty, m_fields.first);
        case CommissionField::FirstDiscountPercent: return recomputeDiscount(firstParty, m_fields.first);
        case CommissionField::FirstDiscount: return recomputePays(firstParty, m_fields.first);
        case CommissionField::SecondKind: return kindChanged(secondParty, m_fields.second);
        case CommissionField::SecondTaxPercent: return recomputeTax(secondParty, m_fields.second);
        case CommissionField::SecondDutyPercent: return recomputeDuty(secondParty, m_fields.second);
        case CommissionField::SecondTax:
        case CommissionField::SecondDuty: return taxOrDutyChanged(secondParty, m_fields.second);
        case CommissionField::SecondDiscountPercent: return recomputeDiscount(secondParty, m_fields.second);
        case CommissionField::SecondDiscount: return recomputePays(secondParty, m_fields.second);
        case CommissionField::FirstPays:
        case CommissionField::SecondPays:
        case CommissionField::Count: return;
        }
    }

private:
    void set(CommissionField field, double value)
    {
        double &current = *figure(m_fields, field);
        if (current == value)
            return;
        current = value;
        dependantsOf(field);
    }

    void amountChanged()
    {
        if (const auto commission = tierCommission(m_fields.amount, m_tiers))
            set(CommissionField::Commission, *commission);
        recomputePays(firstParty, m_fields.first);
        recomputePays(secondParty, m_fields.second);
        recomputeDiscount(firstParty, m_fields.first);
        recomputeDiscount(secondParty, m_fields.second);
    }

    void commissionChanged()
    {
        recomputeTotal(m_fields.first);
        recomputeTax(firstParty, m_fields.first);
        recomputeDuty(firstParty, m_fields.first);
        recomputeTax(secondParty, m_fields.second);
        recomputeDuty(secondParty, m_fields.second);
    }

    void taxOrDutyChanged(const PartyFields &names, const CommissionParty &party)
    {
        recomputeTotal(party);
        // The total may keep its value (the other party set it before), and then it passes nothing on.
        if (party.kind == PartyKind::Showroom)
            recomputePays(names, party);
    }

    void totalChanged()
    {
        payTotal(firstParty, m_fields.first);
        payTotal(secondParty, m_fields.second);
    }

    void kindChanged(const PartyFields &names, const CommissionParty &party)
    {
        if (party.kind == PartyKind::Showroom) {
            set(names.discountPercent, 0);
            set(names.discount, 0);
        }
        recomputePays(names, party);
    }

    void recomputeTotal(const CommissionParty &party)
    {
        set(CommissionField::PerPartyTotal, m_fields.commission + party.tax + party.duty);
    }

    void recomputeTax(const PartyFields &names, const CommissionParty &party)
    {
        set(names.tax, m_fields.commission * party.taxPercent / 100.0);
    }

    void recomputeDuty(const PartyFields &names, const CommissionParty &party)
    {
        set(names.duty, m_fields.commission * party.dutyPercent / 100.0);
    }

    void recomputeDiscount(const PartyFields &names, const CommissionParty &party)
    {
        const bool none = IsEquals(party.discountPercent, 0);
        set(names.discount, none ? 0 : m_fields.commission * party.discountPercent / 100.0);
    }

    void recomputePays(const PartyFields &names, const CommissionParty &party)
    {
        if (party.kind == PartyKind::Showroom)
            set(names.pays, party.tax + party.duty);
        else if (party.kind != PartyKind::None)
            set(names.pays, m_fields.perPartyTotal - party.discount);
    }

    void payTotal(const PartyFields &names, const CommissionParty &party)
    {
        set(names.pays, party.kind == PartyKind::Showroom ? party.tax + party.duty : m_fields.perPartyTotal);
    }

    CommissionFields &m_fields;
    const CommissionTiers &m_tiers;
};

}

double commissionValue(const CommissionFields &fields, CommissionField field)
{
    const double *value = figure(const_cast<CommissionFields &>(fields), field);
    return value ? *value : 0;
}

void setCommissionValue(CommissionFields &fields, CommissionField field, double value)
{
    if (double *target = figure(fields, field))
        *target = value;
}

std::optional<double> tierCommission(double amount, const CommissionTiers &tiers)
{
    const std::size_t inUse = tiers.thirdInUse ? 3 : 2;
    for (std::size_t tier = 0; tier < inUse; ++tier) {
        if (amount <= tiers.ceilings[tier])
            return amount * tiers.percents[tier] / 100.0;
    }
    return std::nullopt;
}

void afterChange(CommissionField changed, CommissionFields &fields, const CommissionTiers &tiers)
{
    Recomputation(fields, tiers).dependantsOf(changed);
}
