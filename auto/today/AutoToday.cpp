// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/today/AutoToday.h"

#include "auto/settings/ContractSettings.h"
#include "auto/today/LotToday.h"
#include "auto/today/MoneyToday.h"
#include "auto/today/MonthsToday.h"

using namespace Qt::StringLiterals;

AutoToday::AutoToday()
{
    TodayCards::enter({.form = u"AutomobilPayments"_s,
                       .right = KSecurity::Access,
                       .cards = {{.id = u"instalments"_s,
                                  .title = u"اقساط سررسید و معوق"_s,
                                  .icon = u":/icons/calendar.svg"_s,
                                  .column = TodayCard::Money,
                                  .rank = 0,
                                  .emptyText = u"تا یک هفته دیگر قسطی سررسید نمی‌شود."_s,
                                  .countText = u"%1 قسط سررسید و معوق"_s}},
                       .read = [](const TodayFrame &frame) { return QList{MoneyToday::instalments(frame)}; }});
    TodayCards::enter({.form = u"AutomobilContracts"_s,
                       .cards = {{.id = u"unsettled"_s,
                                  .title = u"قراردادهای تسویه نشده"_s,
                                  .icon = u":/icons/contract.svg"_s,
                                  .column = TodayCard::Money,
                                  .rank = 2,
                                  .emptyText = u"هیچ قراردادی از روزهای پیش تسویه نشده نمانده است."_s}},
                       .settingsSection = ContractSettings::section(),
                       .read = [](const TodayFrame &frame) { return QList{MoneyToday::unsettled(frame)}; }});
    TodayCards::enter({.form = u"AutomobilDemands"_s,
                       .cards = {{.id = u"matches"_s,
                                  .title = u"خودروهای متناسب با تقاضا"_s,
                                  .icon = u":/icons/search.svg"_s,
                                  .column = TodayCard::People,
                                  .rank = 1,
                                  .emptyText = u"از دیروز خودرویی که با تقاضایی متناسب باشد نیامده است."_s}},
                       .read = [](const TodayFrame &frame) { return QList{LotToday::matches(frame)}; }});
    TodayCards::enter({.form = u"AutomobilInformations"_s,
                       .cards = {{.id = u"standing"_s,
                                  .title = u"خودروهای مانده"_s,
                                  .icon = u":/icons/car.svg"_s,
                                  .column = TodayCard::People,
                                  .rank = 2,
                                  .emptyText = u"هیچ خودرویی بیش از اندازه نمانده است."_s},
                                 {.id = u"insurance"_s,
                                  .title = u"پایان بیمه خودروها"_s,
                                  .icon = u":/icons/document.svg"_s,
                                  .column = TodayCard::People,
                                  .rank = 4}},
                       .read = &LotToday::standing});
    TodayCards::setFigures(u"AutomobilContracts"_s, &MonthsToday::read);
}

// The functions that they hold are the module's.
AutoToday::~AutoToday()
{
    for (const QString &card : {u"instalments"_s, u"unsettled"_s, u"matches"_s, u"standing"_s})
        TodayCards::remove(card);
    TodayCards::setFigures({}, {});
}

void AutoToday::enter()
{
    static const AutoToday entered;
}
