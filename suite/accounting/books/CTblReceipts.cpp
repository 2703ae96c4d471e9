// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/CTblReceipts.h"

#include "suite/db/KTransaction.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/books/DocumentWriter.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/utility/values/ShamsiDate.h"
#include "suite/utility/values/TextStandard.h"
#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

namespace {

void requireReceivable(const CTblReceipts::Receipt &receipt)
{
    GetDBSetting()->RequireOpenDB();
    if (receipt.personID < 1)
        throw KAccountingError(u"لطفا شخص را انتخاب نمایید."_s);
    if (receipt.amount <= 0 || IsEquals(receipt.amount, 0))
        throw KAccountingError(u"لطفا مبلغ را وارد نمایید."_s);
    if (receipt.moeen < 1)
        throw KAccountingError(u"لطفا حساب صندوق یا بانک را انتخاب نمایید."_s);
    if (!receipt.date.isValid())
        throw KAccountingError(u"لطفا تاریخ را وارد نمایید."_s);
    OfficeSettings::read().requireInFiscalYear(receipt.date.date(), u"دریافت"_s);
}

int writeDocument(const CTblReceipts::Receipt &receipt, int fiscalYear, int database)
{
    DocumentWriter document({receipt.date,
                             receipt.desc,
                             {{receipt.moeen, 0, receipt.amount, 0, receipt.desc},
                              {Accounts::persons, receipt.personID, 0, receipt.amount, receipt.desc}}},
                            database);
    if (!document.add(Accounts::documentKindReceipt, fiscalYear))
        throw KAccountingError(u"سند دریافت ایجاد نشد."_s);
    document.writeRows();
    return document.num();
}

// Locks it first, so that of two who make it void at once the second is told.
void requireVoidable(CTblReceipts &receipt, int id, int fiscalYear)
{
    if (!receipt.lockRecord(id))
        throw KAccountingError(u"این دریافت دیگر وجود ندارد."_s);
    if (receipt.m_iStatus == CTblReceipts::voided)
        throw KAccountingError(u"این دریافت را کاربر «%1» در %2 باطل کرده است."_s.arg(
            CTblUsers::GetName(receipt.m_iVoidUserID, receipt.database()), shamsiText(receipt.m_dateVoid.date())));
    if (receipt.m_iFiscalYear != fiscalYear)
        throw KAccountingError(u"این دریافت از سال مالی %1 است و در سال مالی %2 باطل نمی‌شود."_s.arg(receipt.m_iFiscalYear).arg(fiscalYear));
}

}

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
    RFX_Long(u"iID", m_iID, u"");
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
    RFX_Long(u"iStatus", m_iStatus, u"");
    RFX_Long(u"iVoidUserID", m_iVoidUserID, u"باطل‌کننده", u"Users", u"iID", u"sUser");
    RFX_Date(u"dateVoid", m_dateVoid, u"تاریخ ابطال");
    RFX_Text(u"sVoidReason", m_sVoidReason, u"دلیل ابطال");
}

int CTblReceipts::receive(const Receipt &receipt, int database)
{
    requireReceivable(receipt);
    int num = 0;
    KTransaction::runReplayable(
        [&] {
            if (receipt.purpose.require)
                receipt.purpose.require();
            const int fiscalYear = GetDBSetting()->FiscalYear();
            num = writeDocument(receipt, fiscalYear, database);
            CTblReceipts set(database);
            set.AddNew();
            set.m_iPersonID = receipt.personID;
            set.m_date = receipt.date;
            set.m_dAmount = receipt.amount;
            set.m_sDesc = receipt.desc;
            set.m_iDocNum = num;
            set.m_iFiscalYear = fiscalYear;
            set.m_iUserID = GetDBSetting()->GetUserID();
            set.m_iTable = receipt.purpose.recordKind;
            set.m_iRecordID = receipt.purpose.recordID;
            set.m_iPaymentID = receipt.purpose.paymentID;
            set.Update(true);
            if (receipt.purpose.received)
                receipt.purpose.received();
        },
        database);
    return num;
}

void CTblReceipts::makeVoid(int id, const QString &reason, int database)
{
    GetDBSetting()->RequireOpenDB();
    const QString why = ConvertToStandard(reason).trimmed();
    if (why.isEmpty())
        throw KAccountingError(u"لطفا دلیل ابطال را وارد نمایید."_s);
    const int fiscalYear = GetDBSetting()->FiscalYear();
    KTransaction::runReplayable(
        [&] {
            CTblReceipts receipt(database);
            requireVoidable(receipt, id, fiscalYear);
            receipt.Edit();
            receipt.m_iStatus = voided;
            receipt.m_iVoidUserID = GetDBSetting()->GetUserID();
            receipt.m_dateVoid = GetDBSetting()->GetDBServerDate();
            receipt.m_sVoidReason = why;
            receipt.Update(true);
            CTblDocuments::VoidDoc(receipt.m_iDocNum, receipt.m_iFiscalYear, database);
        },
        database);
}
