// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/CTblReceipts.h"

#include "suite/db/KTransaction.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/books/DocumentWriter.h"
#include "suite/accounting/frame/KAccountingError.h"
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
}

int CTblReceipts::receive(const Receipt &receipt, int database)
{
    requireReceivable(receipt);
    int num = 0;
    KTransaction::runReplayable(
        [&] {
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
            set.Update(true);
        },
        database);
    return num;
}
