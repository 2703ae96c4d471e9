// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/DemoData.h"

#include "auto/contracts/receipts/ContractReceiptOwner.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KLongWork.h"
#include "suite/db/connection/KTransaction.h"
#include "host/demo/DemoCarContracts.h"
#include "host/demo/DemoCars.h"
#include "host/demo/DemoFurtherPictures.h"
#include "host/demo/DemoCatalog.h"
#include "host/demo/DemoContracts.h"
#include "host/demo/DemoDemands.h"
#include "host/demo/DemoInvoices.h"
#include "host/demo/DemoMoney.h"
#include "suite/accounting/lists/CTblSavedFilters.h"
#include "host/demo/DemoStories.h"
#include "host/demo/DemoToday.h"
#include "host/demo/DemoYear.h"
#include "suite/accounting/books/totals/TotalsFolding.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int fewestPersons = 20;
constexpr int fewestDemands = 10;
constexpr int fewestCars = 12;
constexpr int fewestSales = 12;
constexpr int mostSales = 120;
constexpr int mostWithMoney = 80; // contracts with receipts, plans and cheques: the latest
constexpr int carsWithStories = 5;
constexpr int daysOfTheRegister = 300; // age of the oldest car in it

constexpr int monthsOfContracts = 24;
constexpr int daysOfInvoices = 142; // so that the season before this one has sales and purchases
constexpr int daysOfMoney = 235;

const QString userName = u"demo"_s;

// In the office's properties.
const QString section = u"Demo"_s;
const QString rowsKey = u"iRows"_s;
const QString wholeKey = u"iContracts"_s;

// Settings and invoices are written by the office's own user, who is logged in meanwhile.
class OfficeUser
{
public:
    explicit OfficeUser(int userID)
        : m_before(GetDBSetting()->GetUserID())
    {
        if (!GetDBSetting()->Login(userID))
            throw KAccountingError(u"کاربر دفتر نمونه وارد نشد."_s);
    }
    ~OfficeUser()
    {
        if (m_before == 0 || !GetDBSetting()->Login(m_before))
            GetDBSetting()->Logout();
    }
    OfficeUser(const OfficeUser &) = delete;
    OfficeUser &operator=(const OfficeUser &) = delete;

private:
    int m_before;
};

void requireEmpty(int database)
{
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery("SELECT EXISTS(SELECT 1 FROM Users) OR EXISTS(SELECT 1 FROM Persons) "
                       "OR EXISTS(SELECT 1 FROM AutomobilContracts) OR EXISTS(SELECT 1 FROM Documents) "
                       "OR EXISTS(SELECT 1 FROM AutomobilInformations) OR EXISTS(SELECT 1 FROM CarBrands) "
                       "OR EXISTS(SELECT 1 FROM Items)");
    if (query.GetLongFieldValue(0) != 0)
        throw KAccountingError(u"دفتر نمونه فقط در یک پایگاه داده خالی ساخته می‌شود."_s);
}

CompanyDetails company()
{
    CompanyDetails details;
    details.name1 = u"نمایشگاه اتومبیل"_s;
    details.name2 = u"آریا"_s;
    details.kind = CompanyDetails::kindLegal;
    details.nationalCode = u"10100000006"_s;
    details.economicCode = u"411100000001"_s;
    details.manager = u"سارا احمدی"_s;
    details.telephone = u"02144556677"_s;
    details.mobile = u"09121234567"_s;
    details.province = u"تهران"_s;
    details.city = u"تهران"_s;
    details.address = u"تهران، خیابان آزادی، پلاک 100"_s;
    details.postalCode = u"1345678901"_s;
    return details;
}

// What the office asks its lists for again and again.
void writeSavedFilters(qint32 userID, const QDate &day, int database)
{
    const QString sinceNewYear = ConvertToMiladi(GetShamsi(day).year, 1, 1).toString(Qt::ISODate);
    const CTblSavedFilters::Entry ofContracts[] = {
        {0, u"فروش‌های امسال"_s, CTblSavedFilters::shared, u"{\"contractFrom\":\"%1\"}"_s.arg(sinceNewYear)},
        {0, u"کمری‌ها"_s, userID, u"{\"explanation\":\"کمری\"}"_s},
    };
    for (const CTblSavedFilters::Entry &entry : ofContracts) {
        CTblSavedFilters filter(database);
        filter.AddNew();
        filter.begin(u"AutomobilContracts"_s, entry);
        filter.m_dateCreate = QDateTime(day, QTime(9, 0), Qt::UTC);
        filter.Update(true);
    }
}

ContractSettings contractSettings()
{
    ContractSettings settings;
    settings.taxPercent = 6;
    settings.dutyPercent = 4;
    settings.tiers.ceilings = {5e9, 20e9, 100e9};
    settings.tiers.percents = {1, 0.75, 0.5};
    settings.tiers.thirdInUse = true;
    settings.postPlan = true;
    settings.lateFeePercent = 0.1;
    settings.lateFeeGrace = 10;
    return settings;
}

// What there are many of. In a unit of its own: as long as one that has filled an empty table goes on, the server believes that table to be empty still, and
// goes through all of its rows for each statement.
void writeRows(int contracts, const QDate &today, DemoRandom &random, int database)
{
    // The office has been closed since yesterday evening, and its next day begins.
    const QDate yesterday = today.addDays(-1);
    KTransaction transaction(database);
    requireEmpty(database);
    const DemoContracts::Office office{
        CTblUsers::create(userName, u"demo"_s, u"سارا احمدی"_s, true, database),
        company(), contractSettings(), addShamsiMonths(yesterday, -monthsOfContracts).addDays(1), yesterday};
    const OfficeUser user(office.userID);
    office.company.write(database);
    office.settings.save(database);
    DemoYear::enter(today);

    const int persons = qMax(fewestPersons, contracts * 2 / 3);
    const QList<DemoPersons::Person> people = DemoPersons::write(persons, random, database);
    DemoContracts(office, people, random, database).write(contracts);
    const DemoCatalog catalog(office.userID, QDateTime(office.firstDay, QTime(9, 0), Qt::UTC), database);
    const DemoCars::Office showroom{office.userID, office.lastDay.addDays(-daysOfTheRegister), office.lastDay};
    DemoCars(showroom, catalog, people, random, database).write(qMax(fewestCars, contracts / 3));
    DemoFurtherPictures::write(office.userID, database);
    DemoCarContracts::write(database);
    writeSavedFilters(office.userID, office.lastDay, database);
    DemoDemands(office.userID, office.lastDay, catalog, people, random).write(qMax(fewestDemands, contracts / 5), database);
    DemoInvoices(yesterday.addDays(-daysOfInvoices), office.lastDay, office.settings.taxPercent, office.settings.dutyPercent, people, random,
                 database)
        .write(qBound(fewestSales, contracts / 10, mostSales));
    CTblProperties::DBWriteSettingInt(section, rowsKey, contracts, database);
    transaction.commit();
    // It would count them some seconds later.
    CTblTemp(database).ExecuteQuery("ANALYZE TABLE AutomobilContracts,AutomobilDemands,AutomobilInformations,Docs,Documents,Persons", true, true);
}

void writeStories(int contracts, const QDate &today, DemoRandom &random, int database)
{
    KTransaction transaction(database);
    CTblUsers demo(database);
    demo.m_filter = "sUser=" + KSql::quoted(userName);
    demo.Open(true, true, true);
    if (demo.IsEOF())
        throw KAccountingError(u"کاربر دفتر نمونه نیست و دفتر نمونه کامل نمی‌شود."_s);
    const OfficeUser user(demo.m_iID);
    ContractReceiptOwner::enter();
    DemoMoney(today.addDays(-1 - daysOfMoney), today, random).write(mostWithMoney);
    DemoYear::enter(today);
    DemoStories::write(carsWithStories, demo.m_iID, today, database);
    DemoToday::write(demo.m_iID, today, database);
    CTblProperties::DBWriteSettingInt(section, wholeKey, contracts, database);
    transaction.commit();
}

}

namespace DemoData {

void fill(int contracts, const QDate &today, int database)
{
    const KLongWork work;
    DemoRandom random(static_cast<unsigned int>(contracts));
    const int written = CTblProperties::DBReadSettingInt(section, rowsKey, 0, database);
    const bool isHalf = written > 0 && CTblProperties::DBReadSettingInt(section, wholeKey, 0, database) == 0;
    if (!isHalf)
        writeRows(contracts, today, random, database);
    writeStories(isHalf ? written : contracts, today, random, database);
    TotalsFolding::fold({}, database);
}

}
