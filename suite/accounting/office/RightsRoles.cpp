// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/RightsRoles.h"

#include "suite/accounting/office/KSecurity.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int none = 0;
constexpr int opens = KSecurity::Access;
constexpr int sees = KSecurity::Access | KSecurity::Read;
constexpr int prints = sees | KSecurity::PrintList;
constexpr int adds = prints | KSecurity::Write;
constexpr int enters = adds | KSecurity::Modify;
constexpr int all = KSecurity::allRights;

constexpr std::array<QStringView, 5> roles{u"مدیر", u"کارمند فروش", u"صندوقدار", u"حسابدار", u"بیننده"};

struct FormRights
{
    QStringView form;
    std::array<int, roles.size()> of; // in the order of the roles
};

// Whoever takes money may take it back, so that a slip does not stay in the cash box; contracts, cars and persons are deleted by the
// manager alone. The accountant sees what he books and changes no contract.
constexpr FormRights table[] = {
    {u"AutomobilContracts", {all, enters, prints, prints, sees}},
    {u"AutomobilContractArchive", {opens, none, none, none, none}},
    {u"AutomobilDemands", {all, all, none, none, sees}},
    {u"AutomobilDemandArchive", {opens, opens, none, none, none}},
    {u"AutomobilInformations", {all, enters, sees, prints, sees}},
    {u"AutomobilInformationArchive", {opens, opens, none, none, none}},
    {u"AutomobilReportSeasons", {all, none, none, all, sees}},
    {u"AutoFullReport", {all, none, none, all, sees}},
    {u"CarsAll", {all, adds, none, none, sees}},
    {u"InputParameters", {all, adds, none, none, sees}},
    {u"AutomobilTariffs", {all, sees, sees, enters, sees}},
    {u"Persons", {all, enters, enters, enters, sees}},
    {u"Factors", {all, none, prints, all, sees}},
    {u"Services", {all, none, sees, all, sees}},
    {u"Documents", {all, none, prints, all, sees}},
    {u"ChartOfAccounts", {all, none, none, all, sees}},
    {u"Receipts", {all, none, all, all, sees}},
    {u"Cheques", {all, none, all, all, sees}},
    {u"AutomobilPayments", {all, prints, all, all, sees}},
    {u"CustomFields", {all, none, none, none, none}},
    {u"MessageTexts", {all, enters, sees, sees, sees}},
    {u"Users", {all, none, none, none, none}},
    {u"Settings", {all, none, none, none, none}},
};
}

QStringList RightsRoles::names()
{
    QStringList names;
    for (const QStringView role : roles)
        names.append(role.toString());
    return names;
}

QHash<QString, int> RightsRoles::rightsOf(const QString &role)
{
    const auto position = names().indexOf(role);
    QHash<QString, int> rights;
    if (position < 0)
        return rights;
    for (const FormRights &row : table)
        rights.insert(row.form.toString(), row.of.at(static_cast<std::size_t>(position)));
    return rights;
}
