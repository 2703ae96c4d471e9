// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/DemoDemands.h"

#include "auto/db/CTblAutomobilDemands.h"
#include "host/demo/DemoTimes.h"
#include "host/demo/RecordBulkInsert.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int months = 8;
constexpr double millionTomans = 1e7; // of tomans, in the office's unit

constexpr QStringView acquaintances[] = {u"آشنایان", u"آگهی روزنامه", u"تابلوی نمایشگاه", u"مشتری قدیمی", u"فضای مجازی"};
constexpr QStringView specials[] = {u"", u"", u"", u"بدون رنگ و تصادف", u"کارکرد زیر 50 هزار کیلومتر", u"تک برگ سند",
                                    u"پرداخت نقدی", u"معاوضه با خودرو فعلی"};

// Rounded to fifty million tomans, as a customer would say it.
double asCustomersSay(double amount)
{
    return qRound64(amount / (50 * millionTomans)) * 50 * millionTomans;
}

}

DemoDemands::DemoDemands(int userID, const QDate &lastDay, const DemoCatalog &catalog,
                         const QList<DemoPersons::Person> &persons, DemoRandom &random)
    : m_userID(userID)
    , m_lastDay(lastDay)
    , m_catalog(catalog)
    , m_persons(persons)
    , m_random(random)
{
}

int DemoDemands::oneOf(const QList<DemoCatalog::Item> &items)
{
    return items.at(m_random.below(static_cast<int>(items.size()))).key;
}

void DemoDemands::write(int count, int database)
{
    CTblAutomobilDemands demand(database);
    RecordBulkInsert demands(demand, RecordBulkInsert::IntoEmptyTable);
    const QDate firstDay = addShamsiMonths(m_lastDay, -months);
    const qint64 days = firstDay.daysTo(m_lastDay);
    for (int code = 1; code <= count; ++code) {
        set(demand, code, firstDay.addDays(days * code / count));
        demands.add();
    }
    demands.flush();
}

void DemoDemands::set(CTblAutomobilDemands &demand, int code, const QDate &day)
{
    demand.m_iCode = code;
    demand.m_iPersonID = m_persons.at(m_random.below(static_cast<int>(m_persons.size()))).id;
    demand.m_dateCreate = QDateTime(day, QTime(9, 0).addSecs(m_random.below(9 * 3600)), Qt::UTC);
    demand.m_dateReference = midnight(day);
    demand.m_dateMaxTimeNeed = m_random.chance(60) ? midnight(day.addDays(m_random.between(15, 120))) : QDateTime();
    demand.m_sAcquaintances = m_random.oneOf(std::span(acquaintances)).toString();
    demand.m_sDescSpecial = m_random.oneOf(std::span(specials)).toString();
    demand.m_iUserID = m_userID;
    setWishes(demand, GetShamsi(day).year);
    // Customers who came long ago have bought by now, or given up.
    const bool old = day.daysTo(m_lastDay) > 120;
    const bool archived = old && m_random.chance(50);
    demand.m_iArchiveUserID = archived ? m_userID : 0;
    demand.m_dateArchive = archived ? midnight(day.addDays(m_random.between(20, 110))) : QDateTime();
    demand.m_iStatus = m_random.chance(4) ? 1 : 0;
}

// Most want a certain make at its price for that age; a few only have a budget.
void DemoDemands::setWishes(CTblAutomobilDemands &demand, int year)
{
    const DemoCatalog::Model &model = m_catalog.models().at(m_random.below(static_cast<int>(m_catalog.models().size())));
    const int age = m_random.below(6);
    const int span = m_random.between(1, 4);
    const bool years = m_random.chance(80);
    const bool amounts = m_random.chance(85);
    demand.m_iAutomobilType = m_random.chance(85) ? model.brand : 0;
    demand.m_iColor = m_random.chance(50) ? oneOf(m_catalog.items(CTblItems::typeColor)) : 0;
    demand.m_iFacilities = m_random.chance(30) ? oneOf(m_catalog.items(CTblItems::typeFeature)) : 0;
    demand.m_iModelUpTo = years ? year - age : 0;
    demand.m_iModelFrom = years ? demand.m_iModelUpTo - span : 0;
    demand.m_dAmountFrom = amounts ? asCustomersSay(model.price * (100 - 8 * (age + span)) / 100) : 0;
    demand.m_dAmountUpTo = amounts ? asCustomersSay(model.price * (105 - 8 * age) / 100) + 50 * millionTomans : 0;
}
