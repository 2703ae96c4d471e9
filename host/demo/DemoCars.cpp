// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/DemoCars.h"

#include "auto/cars/register/editor/ProfitAndLoss.h"
#include "auto/cars/register/editor/VehicleIdentification.h"
#include "host/demo/DemoPictures.h"
#include "host/demo/DemoTimes.h"
#include "host/demo/RecordBulkInsert.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/utility/values/ShamsiDate.h"

#include <iterator>

using namespace Qt::StringLiterals;

namespace {

enum UsageType {
    Passenger = 1,
    Heavy = 2
};

enum Fuel {
    Petrol = 1,
    TwoFuels = 2
};

struct Paint
{
    QStringView name;
    QRgb color;
};

constexpr Paint paints[] = {
    {u"سفید", 0xf2f2ee},
    {u"مشکی", 0x26282c},
    {u"نقره‌ای", 0xb9bdc2},
    {u"خاکستری", 0x74797f},
    {u"آبی", 0x2f5d9b},
    {u"قرمز", 0xa3212b},
    {u"نوک‌مدادی", 0x4c5157},
    {u"بژ", 0xd3c6a6},
};

const QString separator = u"، "_s;

double roundedToMillions(double amount)
{
    return qRound64(amount / 1e7) * 1e7;
}

// The check digit that matches the others.
QString vehicleIdentification(const QString &maker, const QString &serial)
{
    for (const QChar digit : u"0123456789X"_s) {
        QString number = maker + digit + serial;
        if (VehicleIdentification::check(number) == VehicleIdentification::State::Good)
            return number;
    }
    return {};
}

CarPicture::Body bodyOf(const DemoCatalog::Model &model)
{
    if (model.isPickup)
        return CarPicture::Body::Pickup;
    // Expensive cars come first; the others follow each other.
    if (model.price >= 2e10)
        return model.model % 2 == 0 ? CarPicture::Body::Sedan : CarPicture::Body::OffRoad;
    return model.model % 2 == 0 ? CarPicture::Body::Sedan : CarPicture::Body::Hatchback;
}

}

DemoCars::DemoCars(const Office &office, const DemoCatalog &catalog, const QList<DemoPersons::Person> &persons,
                   DemoRandom &random, int database)
    : m_office(office)
    , m_catalog(catalog)
    , m_persons(persons)
    , m_random(random)
    , m_car(database)
{
}

void DemoCars::write(int count)
{
    RecordBulkInsert rows(m_car, RecordBulkInsert::IntoEmptyTable);
    const qint64 days = m_office.firstDay.daysTo(m_office.lastDay);
    for (int code = 1; code <= count; ++code) {
        makeCar(code, m_office.firstDay.addDays(days * code / count));
        rows.add();
    }
    rows.flush();
}

void DemoCars::makeCar(int code, const QDate &day)
{
    const QList<DemoCatalog::Model> &models = m_catalog.models();
    const DemoCatalog::Model &model = models.at(m_random.below(static_cast<int>(models.size())));
    m_car.m_iCode = code;
    m_car.m_iUserID = m_office.userID;
    m_car.m_dateCreate = QDateTime(day, QTime(9, 0).addSecs(m_random.below(9 * 3600)), Qt::UTC);
    m_car.m_dateIntroduction = midnight(day);
    const DemoPersons::Person &owner = anybodyBut(0);
    m_car.m_iPersonID = owner.id;
    m_ownerName = owner.name;
    m_car.m_iStatus = m_random.chance(3) ? 1 : 0;
    setVehicle(model, day);
    setNumbers();
    setEquipment();
    setInsurance(day);
    clearSale();
    // A car that has been on offer for long is more often gone.
    const qint64 waiting = day.daysTo(m_office.lastDay);
    if (waiting > 20 && m_random.chance(waiting > 150 ? 55 : 25))
        setSale(day.addDays(m_random.between(5, 20)));
    setPicture(model, code);
}

const DemoPersons::Person &DemoCars::anybodyBut(int person)
{
    for (;;) {
        const DemoPersons::Person &chosen = m_persons.at(m_random.below(static_cast<int>(m_persons.size())));
        if (chosen.id != person)
            return chosen;
    }
}

int DemoCars::item(int type)
{
    const QList<DemoCatalog::Item> items = m_catalog.items(type);
    return items.at(m_random.below(static_cast<int>(items.size()))).key;
}

void DemoCars::setVehicle(const DemoCatalog::Model &model, const QDate &day)
{
    const int age = m_random.below(9);
    m_car.m_iAutomobilType = model.brand;
    m_car.m_iModel = model.model;
    m_car.m_iBrigade = model.classes.at(m_random.below(static_cast<int>(model.classes.size())));
    m_car.m_iSystem = m_catalog.items(CTblItems::typeSystem).at(static_cast<int>(bodyOf(model))).key;
    m_car.m_iCountry = model.country;
    m_car.m_iYear = GetShamsi(day).year - age;
    m_car.m_iMonth = m_random.between(1, 12);
    m_car.m_iFunction = age == 0 ? m_random.below(3) * 10 : age * m_random.between(8, 24) * 1000;
    m_car.m_iUsageType = model.isPickup ? Heavy : Passenger;
    m_car.m_iFuel = m_random.chance(12) ? TwoFuels : Petrol;
    m_car.m_iNumOFAxles = 2;
    m_car.m_iNumOfWheels = 4;
    m_car.m_iNumOfCylinders = model.cylinders;
    m_car.m_iVolumCylinders = item(CTblItems::typeEngineVolume);
    m_car.m_iCapacity = model.isPickup ? 2 : 5;
    m_car.m_iBodyStatus = item(CTblItems::typeBodyStatus);
    m_car.m_iSource = item(CTblItems::typeSource);
    const QList<DemoCatalog::Item> colors = m_catalog.items(CTblItems::typeColor);
    const DemoCatalog::Item &color = colors.at(m_random.below(static_cast<int>(colors.size())));
    m_car.m_iColor = color.key;
    m_colorName = color.name;
    // A car loses about a tenth of its price a year.
    m_car.m_dAmount = roundedToMillions(model.price * (100 - 8 * age) / 100 + m_random.below(30) * 1e7);
}

void DemoCars::setNumbers()
{
    m_car.m_sChassisNum = u"NAA%1"_s.arg(m_random.between(10000000, 99999999));
    m_car.m_sNumOfEngines = u"1%1"_s.arg(m_random.between(1000000, 9999999));
    m_car.m_sNumOfBodies = u"B%1"_s.arg(m_random.between(100000, 999999));
    m_car.m_sVIN = vehicleIdentification(u"NAA%1"_s.arg(m_random.between(10000, 99999)),
                                         QString::number(m_random.between(10000000, 99999999)));
    m_car.m_sNumOfPlates = u"%1 ب %2 ایران %3"_s
                               .arg(QString::number(m_random.between(11, 99)), QString::number(m_random.between(111, 999)),
                                    QString::number(m_random.between(10, 99)));
}

std::pair<QString, QString> DemoCars::chosenAndMissing(int type, int chosenPercent)
{
    QStringList chosen;
    QStringList missing;
    for (const DemoCatalog::Item &value : m_catalog.items(type))
        (m_random.chance(chosenPercent) ? chosen : missing).append(value.name);
    return {chosen.join(separator), missing.join(separator)};
}

void DemoCars::setEquipment()
{
    std::tie(m_car.m_sDocumentsDelivered, m_car.m_sDocumentsDeficit) = chosenAndMissing(CTblItems::typeDeliveredDocument, 85);
    std::tie(m_car.m_sAccessories, m_car.m_sFractionalParts) = chosenAndMissing(CTblItems::typeAccessory, 85);
    m_car.m_sFacilities = chosenAndMissing(CTblItems::typeFeature, 45).first;
    m_car.m_bDocumentDeficit = m_car.m_sDocumentsDeficit.isEmpty() ? 0 : 1;
    m_car.m_bFractionalParts = m_car.m_sFractionalParts.isEmpty() ? 0 : 1;
    m_car.m_sDesc = m_random.chance(30) ? u"تک برگ، آماده انتقال"_s : QString();
    m_car.m_sDescSpecial = m_random.chance(15) ? u"مالک عجله دارد"_s : QString();
}

void DemoCars::setInsurance(const QDate &day)
{
    const bool insured = m_random.chance(85);
    m_car.m_dateInsurance = insured ? midnight(day.addDays(m_random.between(20, 340))) : QDateTime();
    m_car.m_sNameInsurance = insured ? m_ownerName : QString();
    m_car.m_sDiscountYears = insured ? QString::number(m_random.below(8)) : QString();
    m_car.m_sInsuranceStatus = insured ? u"شخص ثالث"_s : u"فاقد بیمه"_s;
}

void DemoCars::clearSale()
{
    m_car.m_bSold = 0;
    m_car.m_iPersonBuyerID = 0;
    m_car.m_dateBuy = m_car.m_dateDelivery = m_car.m_dateLegalDocument = m_car.m_datefinalDocument = QDateTime();
    m_car.m_sRegistryNum.clear();
    m_car.m_dSoldAmount = m_car.m_dPurchasePriceOfOwner = m_car.m_dAutomobilExpenses = 0;
    m_car.m_dAmountPresence = m_car.m_dRemainingPresence = m_car.m_dProfitAndLoss = 0;
    m_car.m_dAmountContract = m_car.m_dPaidContract = m_car.m_dRemainingContract = 0;
    m_car.m_dAmountCommission = m_car.m_dPaidComission = m_car.m_dRemainingComission = 0;
    m_car.m_iArchiveUserID = 0;
    m_car.m_dateArchive = QDateTime();
}

void DemoCars::setSale(const QDate &day)
{
    m_car.m_bSold = 1;
    m_car.m_iPersonBuyerID = anybodyBut(m_car.m_iPersonID).id;
    m_car.m_dateBuy = m_car.m_dateDelivery = midnight(day);
    const bool transferred = m_random.chance(80);
    m_car.m_datefinalDocument = transferred ? midnight(day.addDays(m_random.between(2, 15))) : QDateTime();
    m_car.m_sRegistryNum = transferred ? QString::number(m_random.between(1, 980)) : QString();

    m_car.m_dSoldAmount = roundedToMillions(m_car.m_dAmount * m_random.between(96, 101) / 100);
    m_car.m_dPurchasePriceOfOwner = roundedToMillions(m_car.m_dSoldAmount * m_random.between(92, 100) / 100);
    m_car.m_dAutomobilExpenses = m_random.chance(60) ? m_random.between(1, 9) * 1e7 : 0;
    m_car.m_dAmountPresence = 12'000'000;
    m_car.m_dRemainingPresence = transferred ? 0 : 6'000'000;
    m_car.m_dProfitAndLoss = profitAndLoss({m_car.m_dSoldAmount, m_car.m_dPurchasePriceOfOwner, m_car.m_dAutomobilExpenses,
                                            m_car.m_dAmountPresence, m_car.m_dRemainingPresence});
    m_car.m_dAmountContract = m_car.m_dSoldAmount;
    m_car.m_dPaidContract = transferred ? m_car.m_dSoldAmount : roundedToMillions(m_car.m_dSoldAmount * 0.7);
    m_car.m_dRemainingContract = m_car.m_dAmountContract - m_car.m_dPaidContract;
    m_car.m_dAmountCommission = roundedToMillions(m_car.m_dSoldAmount * 0.01);
    m_car.m_dPaidComission = m_car.m_dAmountCommission;

    if (day.daysTo(m_office.lastDay) > 120 && m_random.chance(60)) {
        m_car.m_iArchiveUserID = m_office.userID;
        m_car.m_dateArchive = midnight(day.addDays(m_random.between(60, 110)));
    }
}

void DemoCars::setPicture(const DemoCatalog::Model &model, int code)
{
    m_car.m_oPicture.data.clear();
    if (code > mostPictures || !m_random.chance(80))
        return;
    const CarPicture::Body body = bodyOf(model);
    QByteArray &picture = m_pictures[u"%1 %2"_s.arg(static_cast<int>(body)).arg(m_colorName)];
    if (picture.isEmpty()) {
        const auto *paint = std::find_if(std::begin(paints), std::end(paints), [this](const Paint &p) { return p.name == m_colorName; });
        picture = DemoPictures::car(body, QColor(paint == std::end(paints) ? QRgb(0xb9bdc2) : paint->color));
    }
    m_car.m_oPicture.data = picture;
}
