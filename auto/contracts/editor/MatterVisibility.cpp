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

// All of the page, in its order.
constexpr QStringView columns[] = {
    u"sAutomobilName", u"sColor", u"sAutomobilType", u"sSystem", u"sModel", u"sBrigade", u"sNumOfEngines", u"sFuel", u"sNumOFAxles", u"sVIN",
    u"sNumOfPlates", u"sChassisNum", u"sNumOfWheels", u"sDengue", u"sDescMatter", u"sDocumentsDelivered", u"sRegistryNum", u"sRightTahrir",
    u"dateDeal", u"dateOffice", u"dateDocument", u"sSampleDescOne", u"sSampleDescTwo", u"sAddressSample", u"dFixAmount", u"sCheckCount",
    u"dAgreeAmount", u"sCheckNum", u"sBankName", u"sBranchName", u"sBranchCode", u"dRemainingAmount", u"sDescRemainingAmount", u"dDamageAmount",
    u"dCompenseAmount", u"sBillNumOne", u"sBillNumTwo", u"dateTradeUnit", u"dEveryHandDealAmount", u"sCity", u"sState", u"sLicense",
    u"dAmountRent", u"sRentTime", u"dateRent", u"dateRentExpire", u"sNumOfMonths", u"sNumOfInstallment", u"sUsanceNum", u"sDescCheck",
    u"dDelayAmount"};

bool isIn(int contractType, unsigned types)
{
    return MatterVisibility::hasPage(contractType) && (types & (1U << contractType)) != 0;
}

}

bool MatterVisibility::hasPage(int contractType)
{
    return contractType >= 0 && contractType <= 2;
}

bool MatterVisibility::isMatter(QStringView column)
{
    return std::ranges::find(columns, column) != std::ranges::end(columns);
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
