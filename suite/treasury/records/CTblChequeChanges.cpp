// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/records/CTblChequeChanges.h"

using namespace Qt::StringLiterals;

CTblChequeChanges::CTblChequeChanges(int database)
    : KMySQL(database)
{
}

CTblChequeChanges::~CTblChequeChanges() = default;

QString CTblChequeChanges::GetTableName() const
{
    return u"ChequeChanges"_s;
}

void CTblChequeChanges::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iChequeID", m_iChequeID, u"");
    RFX_Long(u"iFromState", m_iFromState, u"از وضعیت");
    RFX_Long(u"iToState", m_iToState, u"به وضعیت");
    RFX_Date(u"date", m_date, u"تاریخ");
    RFX_Long(u"iAccount", m_iAccount, u"حساب", u"HesabMoeen", u"iCode", u"sName");
    RFX_Long(u"iPersonID", m_iPersonID, u"شخص", u"Persons", u"iID", u"sName2");
    RFX_Text(u"sDesc", m_sDesc, u"شرح");
    RFX_Long(u"iDocNum", m_iDocNum, u"شماره سند");
    RFX_Long(u"iFiscalYear", m_iFiscalYear, u"سال مالی");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Long(u"iStatus", m_iStatus, u"");
    RFX_Long(u"iVoidUserID", m_iVoidUserID, u"برگرداننده", u"Users", u"iID", u"sUser");
    RFX_Date(u"dateVoid", m_dateVoid, u"تاریخ برگرداندن");
    RFX_Text(u"sVoidReason", m_sVoidReason, u"دلیل برگرداندن");
    RFX_Long(u"iVoidDocNum", m_iVoidDocNum, u"سند برگرداندن");
    RFX_Long(u"iVoidFiscalYear", m_iVoidFiscalYear, u"");
}
