// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilPayments.h"

using namespace Qt::StringLiterals;

CTblAutomobilPayments::CTblAutomobilPayments(int database)
    : KMySQL(database)
{
}

CTblAutomobilPayments::~CTblAutomobilPayments() = default;

QString CTblAutomobilPayments::GetTableName() const
{
    return u"AutomobilPayments"_s;
}

void CTblAutomobilPayments::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iDepartmentID", m_iDepartmentID, u"شعبه", u"Departments", u"iID", u"sName");
    RFX_Long(u"iAutomobilContractID", m_iAutomobilContractID, u"");
    RFX_Long(u"iPersonID", m_iPersonID, u"طرف حساب", u"Persons", u"iID", u"sName2");
    RFX_Long(u"iNum", m_iNum, u"شماره");
    RFX_Date(u"date", m_date, u"تاريخ");
    RFX_Text(u"sDesc", m_sDesc, u"شرح");
    RFX_Double(u"dAmount", m_dAmount, u"مبلغ");
    RFX_Long(u"iDocNum", m_iDocNum, u"ش سند", u"Documents", u"iNum", u"iNum");
    RFX_Double(u"dExtra", m_dExtra, u"");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Long(u"iLevel", m_iLevel, u"");
    RFX_Long(u"iDays", m_iDays, u"");
    RFX_Long(u"iMonths", m_iMonths, u"");
    RFX_Bool(u"bPercentMonthly", m_bPercentMonthly, u"");
}
