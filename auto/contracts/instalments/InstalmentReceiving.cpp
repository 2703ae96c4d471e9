// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/InstalmentReceiving.h"

#include "auto/contracts/instalments/StoredInstalments.h"
#include "auto/contracts/parties/ContractSide.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/ContractLock.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/treasury/records/CTblReceipts.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

using InstalmentReceiving::Target;

// The newest receipt that stands for the instalment; at the end where there is none.
std::unique_ptr<CTblReceipts> newestReceipt(const Target &instalment)
{
    auto receipt = std::make_unique<CTblReceipts>();
    receipt->m_filter = KSql::formatted("iTable=%1 AND iRecordID=%2 AND iPaymentID=%3 AND iStatus=%4",
                                        int(CTblAutomobilContracts::recordKind), instalment.contractID, instalment.paymentID,
                                        int(CTblReceipts::valid));
    receipt->m_sort = "iID DESC";
    receipt->SetLimit(1);
    receipt->Open(false, true, true);
    return receipt;
}

QString alreadyReceived(const Target &instalment)
{
    const std::unique_ptr<CTblReceipts> receipt = newestReceipt(instalment);
    if (receipt->IsEOF())
        return u"قسط شماره %1 در این میان پرداخت شده است. چیزی ثبت نشد."_s.arg(instalment.number);
    return u"قسط شماره %1 را کاربر «%2» به تاریخ %3 با سند شماره %4 دریافت کرده است. چیزی ثبت نشد."_s
        .arg(QString::number(instalment.number), CTblUsers::GetName(receipt->m_iUserID), shamsiText(receipt->m_date.date()),
             QString::number(receipt->m_iDocNum));
}

QString anotherPart(const Target &instalment, double rest)
{
    const std::unique_ptr<CTblReceipts> receipt = newestReceipt(instalment);
    const QString user = receipt->IsEOF() ? QString() : CTblUsers::GetName(receipt->m_iUserID);
    const QString who = user.isEmpty() ? u"کاربر دیگری"_s : u"کاربر «%1»"_s.arg(user);
    return u"دریافت‌های قسط شماره %1 را %2 در این میان تغییر داده است و مانده آن اکنون %3 است. چیزی ثبت نشد؛ اگر این دریافت دیگری است، "
           "مبلغ را بررسی کنید و دوباره «تایید» را بزنید."_s
               .arg(QString::number(instalment.number), who, DToMoney(rest));
}

void requireOpen(Target &instalment)
{
    CTblAutomobilContracts contract;
    ContractLock::take(contract, instalment.contractID);
    if (contract.m_iStatus == 1)
        throw KAccountingError(u"این قرارداد باطل شده است."_s);
    const std::vector<StoredInstalments::Row> rows = StoredInstalments::loadLocked(instalment.contractID, StoredInstalments::Scope::AllDepartments);
    const auto row = std::ranges::find(rows, instalment.paymentID, &StoredInstalments::Row::id);
    if (row == rows.cend())
        throw KAccountingError(u"قسط شماره %1 دیگر در برنامه اقساط این قرارداد نیست. چیزی ثبت نشد."_s.arg(instalment.number));
    const InstalmentState state = row->state();
    if (state.kind == InstalmentState::Paid)
        throw KAccountingError(alreadyReceived(instalment));
    if (IsEquals(row->received, instalment.received))
        return;
    instalment.received = row->received;
    throw KAccountingError(anotherPart(instalment, state.rest));
}

}

ReceiptPurpose InstalmentReceiving::purpose(const Target &instalment)
{
    const auto known = std::make_shared<Target>(instalment);
    return {.recordKind = CTblAutomobilContracts::recordKind,
            .recordID = instalment.contractID,
            .paymentID = instalment.paymentID,
            .what = ReceiptPurpose::Instalment,
            .side = ContractSide::buyer,
            .text = u"قسط %1 قرارداد %2"_s.arg(instalment.number).arg(instalment.contractNumber),
            .require = [known] { requireOpen(*known); }};
}

ReceiptPurpose InstalmentReceiving::purpose(int contractID, int paymentID, int number, double received)
{
    CTblAutomobilContracts contract;
    contract.SetColumns({u"iCode"_s, u"iNum"_s});
    contract.IsRecordExist(u"iID"_s, contractID);
    return purpose({contractID, contract.number(), paymentID, number, received});
}
