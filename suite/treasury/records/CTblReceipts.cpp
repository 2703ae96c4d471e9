// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/records/CTblReceipts.h"

#include "suite/accounting/office/ReceiptMethods.h"

using namespace Qt::StringLiterals;

CTblReceipts::CTblReceipts(int database)
    : KMySQL(database)
{
}

CTblReceipts::~CTblReceipts() = default;

QString CTblReceipts::GetTableName() const
{
    return u"Receipts"_s;
}

void CTblReceipts::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"شماره");
    RFX_Long(u"iPersonID", m_iPersonID, u"طرف حساب", u"Persons", u"iID", u"sName2");
    RFX_Date(u"date", m_date, u"تاریخ");
    RFX_Double(u"dAmount", m_dAmount, u"مبلغ");
    RFX_Text(u"sDesc", m_sDesc, u"شرح");
    RFX_Long(u"iDocNum", m_iDocNum, u"شماره سند", u"Documents", u"iNum", u"iNum");
    RFX_Long(u"iFiscalYear", m_iFiscalYear, u"سال مالی");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Long(u"iTable", m_iTable, u"");
    RFX_Long(u"iRecordID", m_iRecordID, u"");
    RFX_Long(u"iPaymentID", m_iPaymentID, u"");
    RFX_Long(u"iStatus", m_iStatus, u"وضعیت");
    RFX_Long(u"iVoidUserID", m_iVoidUserID, u"باطل‌کننده", u"Users", u"iID", u"sUser");
    RFX_Date(u"dateVoid", m_dateVoid, u"تاریخ ابطال");
    RFX_Text(u"sVoidReason", m_sVoidReason, u"دلیل ابطال");
    RFX_Long(u"iKind", m_iKind, u"نوع");
    RFX_Long(u"iMethod", m_iMethod, u"روش");
    RFX_Long(u"iAccount", m_iAccount, u"حساب", u"HesabMoeen", u"iCode", u"sName");
    RFX_Long(u"iFor", m_iFor, u"");
    RFX_Long(u"iSide", m_iSide, u"");
    RFX_Text(u"sFor", m_sFor, u"بابت");
    RFX_Long(u"iChequeID", m_iChequeID, u"");
    RFX_Long(u"iVoidDocNum", m_iVoidDocNum, u"سند ابطال");
    RFX_Long(u"iVoidFiscalYear", m_iVoidFiscalYear, u"");
    RFX_Date(u"dateCreate", m_dateCreate, u"");
}

QString CTblReceipts::kindName(int kind)
{
    return kind == paid ? u"پرداخت"_s : u"دریافت"_s;
}

QString CTblReceipts::methodName(int method)
{
    const QString name = ReceiptMethods::name(method);
    return name.isEmpty() ? u"-"_s : name;
}

QString CTblReceipts::statusName(int status)
{
    switch (status) {
    case voided: return u"باطل"_s;
    case unpaid: return u"برگشتی"_s;
    default: return u"معتبر"_s;
    }
}
