// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/invoices/CTblFactorStuffs.h"

#include "suite/accounting/invoices/CTblFactors.h"

using namespace Qt::StringLiterals;

CTblFactorStuffs::CTblFactorStuffs(int database)
    : KMySQL(database)
{
}

CTblFactorStuffs::~CTblFactorStuffs() = default;

QString CTblFactorStuffs::GetTableName() const
{
    return u"FactorStuffs"_s;
}

void CTblFactorStuffs::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iFactorNum", m_iFactorNum, u"شماره فاکتور", u"Factors", u"iID", u"iID");
    RFX_Long(u"iType", m_iType, u"");
    RFX_Long(u"iKind", m_iKind, u"");
    RFX_Long(u"iServiceID", m_iServiceID, u"خدمت", u"Services", u"iID", u"sName");
    RFX_Text(u"sDesc", m_sDesc, u"شرح");
    RFX_Double(u"dCount", m_dCount, u"تعداد");
    RFX_Double(u"dPrice", m_dPrice, u"قیمت");
    RFX_Double(u"dAmount", m_dAmount, u"مبلغ");
    RFX_Long(u"iDepartmentID", m_iDepartmentID, u"شعبه", u"Departments", u"iID", u"sName");
}

int CTblFactorStuffs::kindOf(int type, bool returned)
{
    if (!returned)
        return ordinary;
    return type == CTblFactors::purchase ? returnedPurchase : returnedSale;
}
