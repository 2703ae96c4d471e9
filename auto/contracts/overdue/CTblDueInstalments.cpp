// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/overdue/CTblDueInstalments.h"

#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/Placeholders.h"

using namespace Qt::StringLiterals;

CTblDueInstalments::CTblDueInstalments(int database)
    : KMySQL(database)
{
}

CTblDueInstalments::~CTblDueInstalments() = default;

QString CTblDueInstalments::GetTableName() const
{
    return u"AutomobilPayments"_s;
}

KSql CTblDueInstalments::condition()
{
    KSql condition = " AND ap.iStatus=0 AND ac.iStatus=0 AND " + Placeholders::none(u"AutomobilContracts"_s, u"ac.iID"_s);
    if (const int department = GetDBSetting()->GetDepartmentID(); department > 0)
        condition += KSql::formatted(" AND ap.iDepartmentID=%1", department);
    return condition;
}

QString CTblDueInstalments::telephone() const
{
    for (const QString &number : {m_sPersonMobile, m_sPersonTel, m_sBuyerMobile, m_sBuyerTel}) {
        if (!number.isEmpty())
            return number;
    }
    return {};
}

// Of the calls about an instalment the last one counts, whatever it says.
QString CTblDueInstalments::fromClause() const
{
    return u"AutomobilPayments ap JOIN AutomobilContracts ac ON ac.iID=ap.iAutomobilContractID LEFT JOIN Persons p ON p.iID=ap.iPersonID "
           "LEFT JOIN FollowUps fu ON fu.iID=(SELECT MAX(f.iID) FROM FollowUps f WHERE f.iTable=%1 AND f.iRecordID=ac.iID AND "
           "f.iPaymentID=ap.iID)"_s.arg(int(CTblAutomobilContracts::recordKind));
}

void CTblDueInstalments::DoFieldExchange()
{
    setAlias(u"ap");
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iAutomobilContractID", m_iContractID, u"");
    RFX_Long(u"iPersonID", m_iPersonID, u"طرف حساب");
    RFX_Long(u"iNum", m_iNum, u"شماره");
    RFX_Date(u"date", m_date, u"تاريخ");
    RFX_Double(u"dAmount", m_dAmount, u"مبلغ");
    setAlias(u"ac");
    RFX_Long(u"iCode", m_iContractCode, u"");
    RFX_Long(u"iNum", m_iContractNum, u"");
    RFX_Text(u"sName2", m_sBuyerName, u"");
    RFX_Text(u"sMobile2", m_sBuyerMobile, u"");
    RFX_Text(u"sTel2", m_sBuyerTel, u"");
    RFX_Text(u"sAutomobilName", m_sAutomobilName, u"");
    RFX_Text(u"sNumOfPlates", m_sNumOfPlates, u"");
    setAlias(u"p");
    RFX_Text(u"sName2", m_sPersonName, u"");
    RFX_Text(u"sMobile", m_sPersonMobile, u"");
    RFX_Text(u"sTel", m_sPersonTel, u"");
    setAlias(u"fu");
    RFX_Text(u"sNote", m_sNote, u"");
    RFX_Date(u"datePromised", m_datePromised, u"");
}
