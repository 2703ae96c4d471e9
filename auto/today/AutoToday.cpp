// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/today/AutoToday.h"

#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/settings/ContractSettings.h"
#include "auto/today/LotToday.h"
#include "auto/today/MoneyToday.h"
#include "auto/today/MonthsToday.h"
#include "suite/treasury/subjects/TreasuryToday.h"

using namespace Qt::StringLiterals;

namespace {

template <TodayContent (*content)(const TodayFrame &)>
QList<TodayContent> only(const TodayFrame &frame)
{
    return {content(frame)};
}

// What a planned note is about, where that is a record of the dealership.
QList<std::pair<int, KSql>> noteNames()
{
    return {{CTblAutomobilContracts::recordKind, "(SELECT CONCAT('قرارداد ',IF(c.iNum<>0,c.iNum,c.iCode)) FROM AutomobilContracts c WHERE c.iID=f.iRecordID)"},
            {CTblAutomobilInformations::recordKind, "(SELECT CONCAT_WS(' ',b.sName,m.sName) FROM AutomobilInformations a LEFT JOIN CarBrands b ON b.iID=a.iAutomobilType LEFT JOIN CarModels m "
                                                    "ON m.iID=a.iModel WHERE a.iID=f.iRecordID)"},
            {CTblAutomobilDemands::recordKind, "(SELECT CONCAT('تقاضای ',p.sName2) FROM AutomobilDemands d JOIN Persons p ON p.iID=d.iPersonID WHERE d.iID=f.iRecordID)"}};
}

QList<TodaySource> sources()
{
    return {
        {.form = u"AutomobilPayments"_s,
         .right = KSecurity::Access,
         .cards = {{.id = u"instalments"_s,
                    .title = u"اقساط سررسید و معوق"_s,
                    .icon = u":/icons/calendar.svg"_s,
                    .column = TodayCard::Money,
                    .rank = 0,
                    .emptyText = u"تا یک هفته دیگر قسطی سررسید نمی‌شود."_s,
                    .countText = u"%1 قسط سررسید و معوق"_s}},
         .read = &only<MoneyToday::instalments>},
        {.form = u"AutomobilContracts"_s,
         .cards = {{.id = u"unsettled"_s,
                    .title = u"قراردادهای تسویه نشده"_s,
                    .icon = u":/icons/contract.svg"_s,
                    .column = TodayCard::Money,
                    .rank = 2,
                    .emptyText = u"در شش ماه گذشته نمانده است."_s}},
         .settingsSection = ContractSettings::section(),
         .read = &only<MoneyToday::unsettled>},
        {.form = u"AutomobilDemands"_s,
         .alsoRead = {u"AutomobilInformations"_s},
         .cards = {{.id = u"matches"_s,
                    .title = u"خودروهای متناسب با تقاضا"_s,
                    .icon = u":/icons/search.svg"_s,
                    .column = TodayCard::People,
                    .rank = 2,
                    .emptyText = u"از دیروز نیامده است."_s}},
         .read = &only<LotToday::matches>},
        {.form = u"AutomobilInformations"_s,
         .cards = {{.id = u"standing"_s,
                    .title = u"خودروهای مانده"_s,
                    .icon = u":/icons/car.svg"_s,
                    .column = TodayCard::People,
                    .rank = 3,
                    .emptyText = u"خودرویی بیش از اندازه نمانده است."_s},
                   {.id = u"insurance"_s,
                    .title = u"پایان بیمه خودروها"_s,
                    .icon = u":/icons/document.svg"_s,
                    .column = TodayCard::People,
                    .rank = 5}},
         .read = &LotToday::standing},
    };
}

}

AutoToday::AutoToday()
{
    for (const auto &[kind, name] : noteNames())
        TreasuryToday::nameNotesAbout(kind, name);
    for (const TodaySource &source : sources())
        TodayCards::enter(source);
    TodayCards::setFigures(u"AutomobilContracts"_s, u"AutoFullReport"_s, &MonthsToday::read);
}

// The functions that they hold are the module's.
AutoToday::~AutoToday()
{
    for (const auto &[kind, name] : noteNames())
        TreasuryToday::nameNotesAbout(kind, {});
    for (const TodaySource &source : sources())
        TodayCards::remove(source.cards.constFirst().id);
    TodayCards::setFigures({}, {}, {});
}

void AutoToday::enter()
{
    static const AutoToday entered;
}
