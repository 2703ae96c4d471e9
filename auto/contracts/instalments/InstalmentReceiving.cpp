// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/InstalmentReceiving.h"

#include "auto/contracts/instalments/StoredInstalments.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/ContractLock.h"
#include "suite/treasury/CTblReceipts.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int buyerSide = 2;

QString alreadyReceived(int contractID, int paymentID, int number)
{
    CTblReceipts receipt;
    receipt.m_filter = KSql::formatted("iTable=%1 AND iRecordID=%2 AND iPaymentID=%3 AND iStatus=%4",
                                       int(CTblAutomobilContracts::recordKind), contractID, paymentID, int(CTblReceipts::valid));
    receipt.Open(false, true, true);
    if (receipt.IsEOF())
        return u"قسط شماره %1 در این میان پرداخت شده است. چیزی ثبت نشد."_s.arg(number);
    return u"قسط شماره %1 را کاربر «%2» به تاریخ %3 با سند شماره %4 دریافت کرده است. چیزی ثبت نشد."_s
        .arg(QString::number(number), CTblUsers::GetName(receipt.m_iUserID), shamsiText(receipt.m_date.date()),
             QString::number(receipt.m_iDocNum));
}

void requireUnpaid(int contractID, int paymentID, int number)
{
    CTblAutomobilContracts contract;
    ContractLock::take(contract, contractID);
    if (contract.m_iStatus == 1)
        throw KAccountingError(u"این قرارداد باطل شده است."_s);
    switch (StoredInstalments::lock(contractID, paymentID)) {
    case StoredInstalments::State::Unpaid:
        return;
    case StoredInstalments::State::Paid:
        throw KAccountingError(alreadyReceived(contractID, paymentID, number));
    case StoredInstalments::State::Gone:
        break;
    }
    throw KAccountingError(u"قسط شماره %1 دیگر در برنامه اقساط این قرارداد نیست. چیزی ثبت نشد."_s.arg(number));
}

}

ReceiptPurpose InstalmentReceiving::purpose(int contractID, int paymentID, int number)
{
    CTblAutomobilContracts contract;
    contract.SetColumns({u"iCode"_s});
    contract.IsRecordExist(u"iID"_s, contractID);
    return {.recordKind = CTblAutomobilContracts::recordKind,
            .recordID = contractID,
            .paymentID = paymentID,
            .what = ReceiptPurpose::Instalment,
            .side = buyerSide,
            .text = u"قسط %1 قرارداد %2"_s.arg(number).arg(contract.m_iCode),
            .require = [=] { requireUnpaid(contractID, paymentID, number); }};
}
