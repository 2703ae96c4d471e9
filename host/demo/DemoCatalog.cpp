// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/DemoCatalog.h"

#include "auto/db/CTblAutomobilTariffs.h"
#include "auto/db/CTblCarBrands.h"
#include "auto/db/CTblCarClasses.h"
#include "auto/db/CTblCarModels.h"
#include "host/demo/DemoNames.h"
#include "host/demo/RecordBulkInsert.h"
#include "suite/accounting/office/CTblItems.h"

#include <initializer_list>

namespace {

struct Values
{
    int type;
    std::initializer_list<QStringView> names;
};

const Values values[] = {
    {CTblItems::typeSystem, {u"سدان", u"هاچ بک", u"شاسی بلند", u"وانت"}},
    {CTblItems::typeSource, {u"آگهی", u"معرفی مشتری", u"مراجعه حضوری", u"همکار"}},
    {CTblItems::typeCountry, {u"ایران", u"فرانسه", u"کره جنوبی", u"ژاپن", u"چین"}},
    {CTblItems::typeEngineVolume, {u"1300", u"1500", u"1600", u"1800", u"2000", u"2400", u"4000"}},
    {CTblItems::typeClearanceCustoms, {u"غرب تهران", u"شهید رجایی", u"بوشهر", u"جلفا"}},
    {CTblItems::typeAccessory, {u"زاپاس", u"جک", u"آچار چرخ", u"کپسول آتش نشانی", u"کفپوش", u"مثلث خطر"}},
    {CTblItems::typeFeature, {u"کیسه هوا", u"ترمز ضد قفل", u"سانروف", u"دوربین عقب", u"صندلی برقی", u"کروز کنترل", u"رینگ اسپرت"}},
    {CTblItems::typeDeliveredDocument,
     {u"برگ سبز", u"سند محضری", u"کارت خودرو", u"بیمه نامه", u"معاینه فنی", u"کارت سوخت", u"خلافی"}},
    {CTblItems::typeClause,
     {u"خودرو بدون رنگ است", u"خلافی با فروشنده", u"بیمه تا پایان سال", u"تعویض پلاک با خریدار"}},
    {CTblItems::typeBodyStatus, {u"بدون رنگ", u"یک لکه رنگ", u"دو لکه رنگ", u"گلگیر تعویض", u"دور رنگ"}},
    {CTblItems::typeWheelCount, {u"4", u"6"}},
    {CTblItems::typeCylinderCount, {u"3", u"4", u"6", u"8"}},
    {CTblItems::typeCapacity, {u"2", u"4", u"5", u"7"}},
};

struct Tariff
{
    QStringView title;
    double amount; // in rials
    QStringView description;
};

constexpr Tariff tariffs[] = {
    {u"حق ثبت سند قطعی", 12'000'000, u"انتقال قطعی خودرو سواری"},
    {u"وکالت فروش", 8'500'000, u"وکالت بلاعزل فروش و انتقال"},
    {u"وکالت تعویض پلاک", 3'200'000, {}},
    {u"اقرارنامه", 2'400'000, {}},
    {u"گواهی امضا", 900'000, u"برای هر امضا"},
    {u"حق تحریر", 6'700'000, u"طبق تعرفه سالانه"},
};

// The trims of every model.
constexpr QStringView trims[] = {u"دنده ای", u"اتوماتیک"};

constexpr QStringView pickup = u"وانت آبی";

struct Home
{
    QStringView maker;
    QStringView country;
};

// The others are made in this country.
constexpr Home homes[] = {
    {u"رنو", u"فرانسه"},
    {u"هیوندای", u"کره جنوبی"},
    {u"کیا", u"کره جنوبی"},
    {u"تویوتا", u"ژاپن"},
    {u"مزدا", u"ژاپن"},
    {u"نیسان", u"ژاپن"},
    {u"چری", u"چین"},
    {u"جک", u"چین"},
};

constexpr double rialsPerMillionTomans = 1e7;

QStringList columns(std::initializer_list<const char *> names)
{
    QStringList result;
    for (const char *name : names)
        result.append(QString::fromLatin1(name));
    return result;
}

}

DemoCatalog::DemoCatalog(int userID, const QDateTime &created, int database)
{
    writeItems(database);
    writeCars(userID, created, database);
    writeTariffs(created, database);
}

void DemoCatalog::writeItems(int database)
{
    CTblItems item(database);
    RecordBulkInsert rows(item, columns({"iID", "iType", "sName", "iStatus"}));
    for (const Values &kind : values) {
        for (const QStringView name : kind.names) {
            ++item.m_iID;
            item.m_iType = kind.type;
            item.m_sName = name.toString();
            rows.add();
            m_items[kind.type].append({item.m_iID, item.m_sName});
        }
    }
    // The colours are those of the contracts.
    for (const QStringView name : DemoNames::colors()) {
        ++item.m_iID;
        item.m_iType = CTblItems::typeColor;
        item.m_sName = name.toString();
        rows.add();
        m_items[item.m_iType].append({item.m_iID, item.m_sName});
    }
    rows.flush();
}

int DemoCatalog::countryOf(QStringView maker) const
{
    QStringView country = u"ایران";
    for (const Home &home : homes) {
        if (home.maker == maker)
            country = home.country;
    }
    for (const Item &item : items(CTblItems::typeCountry)) {
        if (item.name == country)
            return item.key;
    }
    return 0;
}

void DemoCatalog::writeCars(int userID, const QDateTime &created, int database)
{
    CTblCarBrands brand(database);
    CTblCarModels model(database);
    CTblCarClasses trim(database);
    RecordBulkInsert brands(brand, columns({"iID", "sName", "iUserID", "dateCreate"}));
    RecordBulkInsert models(model, columns({"iID", "sName", "iClassID", "iUserID", "dateCreate"}));
    RecordBulkInsert classes(trim, columns({"iID", "sName", "iBrandID", "iUserID", "dateCreate"}));
    brand.m_iUserID = model.m_iUserID = trim.m_iUserID = userID;
    brand.m_dateCreate = model.m_dateCreate = trim.m_dateCreate = created;
    // The cars of one maker come one after another.
    for (const DemoNames::Car &car : DemoNames::cars()) {
        if (brand.m_sName != car.maker) {
            ++brand.m_iID;
            brand.m_sName = car.maker.toString();
            brands.add();
        }
        ++model.m_iID;
        model.m_iClassID = brand.m_iID;
        model.m_sName = car.name.toString();
        models.add();
        Model entry{brand.m_iID, model.m_iID, {}, car.millions * rialsPerMillionTomans, car.cylinders, car.name == pickup, countryOf(car.maker)};
        for (const QStringView name : trims) {
            ++trim.m_iID;
            trim.m_iBrandID = model.m_iID;
            trim.m_sName = name.toString();
            classes.add();
            entry.classes.append(trim.m_iID);
        }
        m_models.append(entry);
    }
    brands.flush();
    models.flush();
    classes.flush();
}

void DemoCatalog::writeTariffs(const QDateTime &created, int database)
{
    CTblAutomobilTariffs tariff(database);
    RecordBulkInsert rows(tariff, columns({"dateCreate", "sDesc", "sTitle", "dAmount", "iStatus"}));
    tariff.m_dateCreate = created;
    for (const Tariff &entry : tariffs) {
        tariff.m_sTitle = entry.title.toString();
        tariff.m_sDesc = entry.description.toString();
        tariff.m_dAmount = entry.amount;
        rows.add();
    }
    rows.flush();
}
