// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/DemoCarContracts.h"

#include "auto/contracts/editor/LoadCarForContract.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblCarContracts.h"
#include "suite/db/records/CTblTemp.h"

#include <QList>

using namespace Qt::StringLiterals;

namespace {

constexpr int most = 6;

QList<int> keys(const KSql &statement, int database)
{
    QList<int> keys;
    CTblTemp query(database);
    query.Open(false, false, true);
    for (query.ExecuteQuery(statement); query.HasResultRow(); query.MoveNextResult())
        keys.append(query.GetLongFieldValue(0));
    return keys;
}

void takeCar(int contractID, int carID, int database)
{
    const std::optional<CarForContract> car = loadCarForContract(carID, database);
    CTblAutomobilContracts contract(database);
    CTblAutomobilInformations sold(database);
    sold.SetColumns({u"dateBuy"_s, u"iPersonBuyerID"_s, u"dSoldAmount"_s, u"dAmountContract"_s, u"iPersonID"_s});
    if (!car || !contract.IsRecordExist(u"iID"_s, contractID) || !sold.IsRecordExist(u"iID"_s, carID))
        return;
    // The office is the same whenever it is created, so that nothing of this is news of today.
    for (KMySQL *record : {static_cast<KMySQL *>(&contract), static_cast<KMySQL *>(&sold)})
        record->setNoting(KMySQL::Noting::Nothing);
    contract.Edit();
    for (const ContractFieldText &field : contractFromCar(*car))
        contract.setValue(field.column, field.text);
    contract.m_sDeal = u"یک دستگاه %1 مدل %2 رنگ %3"_s.arg(contract.m_sAutomobilName, contract.m_sModel, contract.m_sColor);
    contract.Update(true);
    sold.Edit();
    if (contract.m_iPersonSecondID != 0 && contract.m_iPersonSecondID != sold.m_iPersonID)
        sold.m_iPersonBuyerID = contract.m_iPersonSecondID;
    sold.Update(true);
    CTblCarContracts link(database);
    link.setNoting(KMySQL::Noting::Nothing);
    link.Open(false, false, true);
    link.AddNew();
    link.m_iCarID = carID;
    link.m_iContractID = contractID;
    link.m_iUserID = contract.m_iUserID;
    link.m_dateCreate = contract.m_dateCreate;
    link.Update(true);
}

}

void DemoCarContracts::write(int database)
{
    const QList<int> sold = keys(KSql::formatted("SELECT iID FROM AutomobilInformations WHERE bSold=1 ORDER BY iID DESC LIMIT %1", most), database);
    const QList<int> contracts = keys(KSql::formatted("SELECT iID FROM AutomobilContracts WHERE iContractType=0 AND iStatus=0 AND iArchiveUserID=0 ORDER BY iID DESC LIMIT %1", most), database);
    for (qsizetype i = 0; i < qMin(sold.size(), contracts.size()); ++i)
        takeCar(contracts.at(i), sold.at(i), database);
}
