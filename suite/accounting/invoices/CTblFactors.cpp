// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/invoices/CTblFactors.h"

using namespace Qt::StringLiterals;

CTblFactors::CTblFactors(int database)
    : KMySQL(database)
{
}

CTblFactors::~CTblFactors() = default;

QString CTblFactors::GetTableName() const
{
    return u"Factors"_s;
}

void CTblFactors::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"شماره فاکتور");
    RFX_Long(u"iType", m_iType, u"نوع فاکتور");
    RFX_Long(u"iStatus", m_iStatus, u"");
    RFX_Long(u"iPersonID", m_iPersonID, u"طرف حساب", u"Persons", u"iID", u"sName2");
    RFX_Long(u"iDepartmentID", m_iDepartmentID, u"شعبه", u"Departments", u"iID", u"sName");
    RFX_Date(u"date", m_date, u"تاریخ");
    RFX_Text(u"sDesc", m_sDesc, u"شرح");
    RFX_Double(u"dAmount", m_dAmount, u"مبلغ");
    RFX_Double(u"dDiscount", m_dDiscount, u"تخفیف");
    RFX_Double(u"dTax", m_dTax, u"مالیات");
    RFX_Double(u"dImposition", m_dImposition, u"عوارض");
    RFX_Long(u"iDocNum", m_iDocNum, u"شماره سند", u"Documents", u"iNum", u"iNum");
    RFX_Long(u"iFiscalYear", m_iFiscalYear, u"سال مالی");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
}
