// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/records/CTblCheques.h"

using namespace Qt::StringLiterals;

CTblCheques::CTblCheques(int database)
    : KMySQL(database)
{
}

CTblCheques::~CTblCheques() = default;

QString CTblCheques::GetTableName() const
{
    return u"Cheques"_s;
}

void CTblCheques::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iKind", m_iKind, u"نوع");
    RFX_Long(u"iState", m_iState, u"وضعیت");
    RFX_Text(u"sSayad", m_sSayad, u"شناسه صیادی");
    RFX_Text(u"sNumber", m_sNumber, u"شماره چک");
    RFX_Text(u"sBank", m_sBank, u"بانک");
    RFX_Text(u"sBranch", m_sBranch, u"شعبه");
    RFX_Text(u"sBranchCode", m_sBranchCode, u"کد شعبه");
    RFX_Double(u"dAmount", m_dAmount, u"مبلغ");
    RFX_Date(u"dateDue", m_dateDue, u"تاریخ سررسید");
    RFX_Text(u"sDrawer", m_sDrawer, u"صادرکننده");
    RFX_Long(u"iPersonID", m_iPersonID, u"طرف حساب", u"Persons", u"iID", u"sName2");
    RFX_Long(u"iAccount", m_iAccount, u"حساب", u"HesabMoeen", u"iCode", u"sName");
    RFX_Long(u"iEndorsedID", m_iEndorsedID, u"خرج شده به", u"Persons", u"iID", u"sName2");
    RFX_Long(u"iTable", m_iTable, u"");
    RFX_Long(u"iRecordID", m_iRecordID, u"");
    RFX_Text(u"sFor", m_sFor, u"بابت");
    RFX_Text(u"sDesc", m_sDesc, u"شرح");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Date(u"dateCreate", m_dateCreate, u"");
}
