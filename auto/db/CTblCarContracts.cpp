// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblCarContracts.h"

#include "suite/accounting/office/CDBSetting.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/records/CTblTemp.h"

using namespace Qt::StringLiterals;

namespace {

KSql carOfStatement(qint32 contractID)
{
    return KSql::formatted("SELECT iCarID FROM CarContracts WHERE iContractID=%1", contractID);
}

}

CTblCarContracts::CTblCarContracts(int database)
    : KMySQL(database)
{
}

CTblCarContracts::~CTblCarContracts() = default;

QString CTblCarContracts::GetTableName() const
{
    return u"CarContracts"_s;
}

void CTblCarContracts::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iCarID", m_iCarID, u"کد خودرو", u"AutomobilInformations", u"iID", u"iCode");
    RFX_Long(u"iContractID", m_iContractID, u"کد قرارداد", u"AutomobilContracts", u"iID", u"iCode");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Date(u"dateCreate", m_dateCreate, u"تاریخ");
}

void CTblCarContracts::set(qint32 contractID, qint32 carID, int database)
{
    CTblCarContracts link(database);
    const bool isThere = link.IsRecordExist(u"iContractID"_s, contractID);
    if (isThere && link.m_iCarID == carID)
        return;
    if (carID == 0) {
        if (isThere)
            (void)link.Delete();
        return;
    }
    if (isThere) {
        link.Edit();
    } else {
        link.Open(false, false, true);
        link.AddNew();
        link.m_iContractID = contractID;
    }
    link.m_iCarID = carID;
    link.m_iUserID = GetDBSetting()->GetUserID();
    link.m_dateCreate = GetDBSetting()->GetDBServerDate();
    link.Update(true);
}

void CTblCarContracts::expectCarOf(qint32 contractID, int database)
{
    KReadAhead::expect(carOfStatement(contractID), database);
}

qint32 CTblCarContracts::carOf(qint32 contractID, int database)
{
    CTblTemp query(database);
    query.Open(false, false, true);
    query.ExecuteQuery(carOfStatement(contractID));
    return query.GetLongFieldValue(0);
}

int CTblCarContracts::countOf(qint32 carID, int database)
{
    CTblTemp query(database);
    query.Open(false, false, true);
    query.FormatAndExecuteQuery("SELECT COUNT(*) FROM CarContracts WHERE iCarID=%d", carID);
    return query.GetLongFieldValue(0);
}

void CTblCarContracts::deleteOf(qint32 contractID, int database)
{
    CTblTemp statement(database);
    statement.Open(true, false, true);
    statement.FormatAndExecuteQuery("DELETE FROM CarContracts WHERE iContractID=%d", contractID);
}
