// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/MatterVisibility.h"

#include <algorithm>

namespace {

// One bit per contract type.
enum Types : unsigned {
    None = 0,
    Sale = 1 << 0,
    Rent = 1 << 1,
    Instalments = 1 << 2
};

struct Rule
{
    QStringView column;
    unsigned types;
};

// The columns that not every type uses.
constexpr Rule rules[] = {
    {u"dFixAmount", None},
    {u"dRemainingAmount", Sale | Rent},
    {u"sDescRemainingAmount", Sale | Rent},
    {u"sDescCheck", Sale | Rent},
    {u"dateDocument", Sale | Rent},
    {u"dateOffice", Sale | Rent},
    {u"dAmountRent", Rent},
    {u"sNumOfMonths", Rent},
    {u"sRentTime", Rent | Instalments},
    {u"dateRent", Rent | Instalments},
    {u"dateRentExpire", Rent | Instalments},
    {u"sNumOfInstallment", Instalments},
    {u"sUsanceNum", Instalments},
    {u"dDelayAmount", Instalments},
};

bool isIn(int contractType, unsigned types)
{
    return MatterVisibility::hasPage(contractType) && (types & (1U << contractType)) != 0;
}

}

bool MatterVisibility::hasPage(int contractType)
{
    return contractType >= 0 && contractType <= 2;
}

bool MatterVisibility::isUsed(int contractType, QStringView column)
{
    const auto *rule = std::ranges::find(rules, column, &Rule::column);
    return rule == std::ranges::end(rules) ? hasPage(contractType) : isIn(contractType, rule->types);
}

bool MatterVisibility::hasTerms(int contractType)
{
    return isIn(contractType, Rent | Instalments);
}

bool MatterVisibility::hasInstalments(int contractType)
{
    return isIn(contractType, Instalments);
}
