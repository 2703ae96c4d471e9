// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/cars/CarSale.h"

#include "auto/cars/register/editor/ProfitAndLoss.h"
#include "auto/contracts/cars/SaleFromContract.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblCarContracts.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/db/records/KLookup.h"
#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

namespace {

using Car = CTblAutomobilInformations;

const QString carForm = u"AutomobilInformations"_s;

QStringList saleColumns()
{
    return {u"bSold"_s, u"iPersonBuyerID"_s, u"dateBuy"_s, u"sRegistryNum"_s, u"dAmountContract"_s, u"dAmountCommission"_s, u"dSoldAmount"_s};
}

// And what the sale is compared or counted with.
void readSale(Car &car)
{
    car.SetColumns(saleColumns() + QStringList{u"iPersonID"_s, u"dPurchasePriceOfOwner"_s, u"dAutomobilExpenses"_s, u"dAmountPresence"_s, u"dRemainingPresence"_s, u"dProfitAndLoss"_s});
}

KRowValues saleOf(Car &car)
{
    KRowValues values;
    for (const QString &column : saleColumns())
        values.insert(column, car.value(column));
    return values;
}

QString nameOf(Car &car)
{
    QStringList parts{KLookup::name(car, u"iAutomobilType"), KLookup::name(car, u"iModel"), car.m_sNumOfPlates};
    parts.removeAll(QString());
    return parts.isEmpty() ? u"کد %1"_s.arg(car.m_iCode) : parts.join(u' ');
}

QList<SaleValue> valuesOf(const CTblAutomobilContracts &contract)
{
    return SaleFromContract::valuesOf({.contractType = contract.m_iContractType, .buyerID = contract.m_iPersonSecondID, .date = contract.m_dateContract, .amount = contract.m_dAmount, .commission = contract.m_dCommission, .registry = contract.m_sRegistryNum});
}

void count(Car &car)
{
    car.m_dProfitAndLoss = profitAndLoss({car.m_dSoldAmount, car.m_dPurchasePriceOfOwner, car.m_dAutomobilExpenses, car.m_dAmountPresence, car.m_dRemainingPresence});
}

bool isSoldBy(const Car &car, const CTblAutomobilContracts &contract)
{
    return car.m_bSold != 0 && IsEquals(car.m_dSoldAmount, contract.m_dAmount) && car.m_iPersonBuyerID == contract.m_iPersonSecondID;
}

bool isSame(const QVariant &one, const QVariant &other)
{
    return one.typeId() == QMetaType::Double ? IsEquals(one.toDouble(), other.toDouble()) : one == other;
}

}

CarSale::Changed::Changed(Reason reason, const QString &message, int contractID)
    : KAccountingError(message)
    , m_reason(reason)
    , m_contractID(contractID)
{
}

CarSale::Changed::~Changed() = default;

std::optional<CarSale::Seen> CarSale::unsold(int carID, int database)
{
    Car car(database);
    car.SetColumns(saleColumns() + QStringList{u"iCode"_s, u"iAutomobilType"_s, u"iModel"_s, u"sNumOfPlates"_s});
    if (!KSecurity::IsGranted(carForm, KSecurity::Modify) || !car.IsRecordExist(u"iID"_s, carID) || car.m_bSold != 0)
        return std::nullopt;
    return Seen{carID, nameOf(car), saleOf(car)};
}

void CarSale::fill(const CTblAutomobilContracts &contract, const Seen &seen)
{
    Car car(contract.database());
    readSale(car);
    if (!car.lockRecord(seen.carID))
        throw Changed(Changed::Reason::Gone, u"%1 خودروی «%2» را در این میان حذف کرده است."_s.arg(RowChanged::lastChange(car.GetTableName(), seen.carID, contract.database()), seen.name));
    if (saleOf(car) != seen.sale)
        throw Changed(Changed::Reason::Sale, u"%1 فروش خودروی «%2» را در این میان تغییر داده است."_s.arg(RowChanged::lastChange(car.GetTableName(), seen.carID, contract.database()), seen.name));
    if (!KSecurity::IsGranted(carForm, KSecurity::Modify))
        throw KAccountingError(KSecurity::refusalText(carForm, KSecurity::Modify));
    car.Edit();
    for (const SaleValue &one : valuesOf(contract)) {
        // Nobody buys his own car.
        const bool isOwner = one.column == "iPersonBuyerID"_L1 && one.value.toInt() == car.m_iPersonID;
        if (!isOwner && SaleFromContract::isEmpty(car.value(one.column)))
            car.setValue(one.column, one.value);
    }
    car.m_bSold = 1;
    count(car);
    car.Update(true);
}

int CarSale::soldBy(const CTblAutomobilContracts &contract)
{
    Car car(contract.database());
    readSale(car);
    const int carID = CTblCarContracts::carOf(contract.m_iID, contract.database());
    return carID != 0 && car.IsRecordExist(u"iID"_s, carID) && isSoldBy(car, contract) ? carID : 0;
}

void CarSale::takeBack(const CTblAutomobilContracts &contract)
{
    Car car(contract.database());
    readSale(car);
    const int carID = CTblCarContracts::carOf(contract.m_iID, contract.database());
    if (carID == 0 || !car.lockRecord(carID) || !isSoldBy(car, contract))
        return;
    car.Edit();
    for (const SaleValue &one : valuesOf(contract)) {
        const QVariant stored = car.value(one.column);
        if (isSame(stored, one.value))
            car.setValue(one.column, QVariant(stored.metaType()));
    }
    car.m_bSold = 0;
    count(car);
    car.Update(true);
}
