// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/receipts/ContractReceipts.h"

#include "auto/db/PlanTrace.h"
#include "auto/contracts/instalments/StoredInstalments.h"
#include "auto/contracts/parties/ContractSide.h"
#include "auto/contracts/receipts/ContractDues.h"
#include "auto/db/ContractLock.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/treasury/followups/CTblFollowUps.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "suite/utility/values/Money.h"

#include <algorithm>
#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

using ContractReceipts::Entry;

constexpr int contractKind = CTblAutomobilContracts::recordKind;

Entry entryOf(const CTblReceipts &receipt)
{
    return {.receiptID = receipt.m_iID,
            .paymentID = receipt.m_iPaymentID,
            .personID = receipt.m_iPersonID,
            .date = receipt.m_date,
            .amount = receipt.m_dAmount,
            .description = receipt.m_sDesc,
            .docNum = receipt.m_iDocNum,
            .fiscalYear = receipt.m_iFiscalYear,
            .kind = receipt.m_iKind,
            .method = receipt.m_iMethod,
            .side = receipt.m_iSide,
            .purpose = receipt.m_sFor,
            .status = receipt.m_iStatus,
            .voidUserID = receipt.m_iVoidUserID,
            .voidDate = receipt.m_dateVoid,
            .voidReason = receipt.m_sVoidReason};
}

QList<Entry> receiptsOf(const CTblAutomobilContracts &contract)
{
    CTblReceipts receipts(contract.database());
    receipts.m_filter = KSql::formatted("iTable=%1 AND iRecordID=%2", contractKind, contract.m_iID);
    QList<Entry> entries;
    for (receipts.Open(false, true, true); !receipts.IsEOF(); receipts.MoveNext())
        entries.append(entryOf(receipts));
    return entries;
}

QList<Entry> paidWithoutReceipt(const CTblAutomobilContracts &contract)
{
    CTblTemp payments(contract.database());
    payments.FormatAndExecuteQuery("SELECT p.iID,p.iPersonID,p.date,p.dAmount,p.sDesc FROM AutomobilPayments p "
                                   "WHERE p.iAutomobilContractID=%d AND p.iStatus=1 AND NOT EXISTS (SELECT 1 FROM Receipts r "
                                   "WHERE r.iTable=%d AND r.iRecordID=p.iAutomobilContractID AND r.iPaymentID=p.iID AND r.iStatus=%d)",
                                   contract.m_iID, contractKind, int(CTblReceipts::valid));
    QList<Entry> entries;
    for (; payments.HasResultRow(); payments.MoveNextResult())
        entries.append({.paymentID = payments.GetLongFieldValue(0),
                        .personID = payments.GetLongFieldValue(1),
                        .date = payments.GetDateFieldValue(2),
                        .amount = payments.GetDoubleFieldValue(3),
                        .description = payments.GetTextFieldValue(4),
                        .side = ContractSide::buyer});
    return entries;
}

// The newest valid receipt of commission of that side, from that person.
std::unique_ptr<CTblReceipts> newestCommission(int contractID, int side, int personID, int database)
{
    auto receipt = std::make_unique<CTblReceipts>(database);
    receipt->m_filter = KSql::formatted("iTable=%1 AND iRecordID=%2 AND iFor=%3 AND iKind=%4 AND iStatus=%5 AND (iSide=%6 OR (iSide=0 AND iPersonID=%7))",
                                        contractKind, contractID, int(ReceiptPurpose::Commission), int(CTblReceipts::received),
                                        int(CTblReceipts::valid), side, personID);
    receipt->m_sort = "iID DESC";
    receipt->SetLimit(1);
    receipt->Open(false, true, true);
    return receipt;
}

// What a window saw when it was opened to receive the commission of a side.
struct SeenCommission
{
    int contractID = 0;
    int side = 0;
    int personID = 0;
    int receiptID = 0;               // the newest
    std::array<double, 2> charged{}; // by the document, and as it is stated
};

std::array<double, 2> chargedOf(const CTblAutomobilContracts &contract, int side)
{
    return {ContractDues::charged(contract, side, false), ContractDues::charged(contract, side, true)};
}

// The amount that was proposed follows from what the contract charged then.
void requireChargeAsSeen(const CTblAutomobilContracts &contract, SeenCommission &seen)
{
    const std::array<double, 2> now = chargedOf(contract, seen.side);
    if (IsEquals(now[0], seen.charged[0]) && IsEquals(now[1], seen.charged[1]))
        return;
    seen.charged = now;
    throw KAccountingError(u"%1 مبلغی را که %2 این قرارداد باید بپردازد در این میان تغییر داده است. چیزی ثبت نشد؛ مبلغ را بررسی کنید و دوباره «تایید» را بزنید."_s.arg(
        RowChanged::lastChange(contract.GetTableName(), contract.m_iID, contract.database()), ContractSide::nameOf(seen.side)));
}

void requireCommissionDue(SeenCommission &seen)
{
    CTblAutomobilContracts contract;
    ContractLock::take(contract, seen.contractID);
    if (contract.m_iStatus == 1)
        throw KAccountingError(u"این قرارداد باطل شده است."_s);
    if (contract.*(ContractSide::of(seen.side).personID) != seen.personID)
        throw KAccountingError(u"%1 این قرارداد در این میان شخص دیگری شده است. چیزی ثبت نشد."_s.arg(ContractSide::nameOf(seen.side)));
    requireChargeAsSeen(contract, seen);
    const std::unique_ptr<CTblReceipts> newest = newestCommission(seen.contractID, seen.side, seen.personID, contract.database());
    if (newest->m_iID <= seen.receiptID)
        return;
    seen.receiptID = newest->m_iID;
    throw KAccountingError(u"در این میان کاربر «%1» مبلغ %2 را با سند شماره %3 بابت همین قرارداد از همین شخص دریافت کرده است. چیزی "
                           "ثبت نشد؛ اگر این دریافت دیگری است، دوباره «تایید» را بزنید."_s
                               .arg(CTblUsers::GetName(newest->m_iUserID), DToMoney(newest->m_dAmount), QString::number(newest->m_iDocNum)));
}

void requireRightToVoid()
{
    const QString form = u"Receipts"_s;
    KSecurity::forgetRights();
    if (!KSecurity::IsGranted(form, KSecurity::Delete))
        throw KAccountingError(KSecurity::refusalText(form, KSecurity::Delete));
}

// Where no receipt keeps why a payment no longer counts, what was said about the instalment does.
void keepReason(int contractID, int paymentID, const QString &reason)
{
    CTblFollowUps note;
    note.Open(false, false, true);
    note.AddNew();
    note.m_iTable = contractKind;
    note.m_iRecordID = contractID;
    note.m_iPaymentID = paymentID;
    note.m_date = GetDBSetting()->GetDBServerDate();
    note.m_sNote = u"پرداخت بدون رسید باطل شد: %1"_s.arg(reason.trimmed()).left(CTblFollowUps::longestNote);
    note.m_iUserID = GetDBSetting()->GetUserID();
    note.Update(true);
}

// Whether the instalment was received by a receipt of its own that stands.
bool hasReceipt(int contractID, int paymentID)
{
    CTblReceipts receipt;
    receipt.SetColumns({u"iPaymentID"_s});
    receipt.m_filter = KSql::formatted("iTable=%1 AND iRecordID=%2 AND iPaymentID=%3 AND iStatus=%4", contractKind, contractID, paymentID,
                                       int(CTblReceipts::valid));
    receipt.Open(false, true, true);
    return !receipt.IsEOF();
}

}

QList<ContractReceipts::Entry> ContractReceipts::list(const CTblAutomobilContracts &contract)
{
    QList<Entry> entries = receiptsOf(contract) + paidWithoutReceipt(contract);
    std::ranges::stable_sort(entries, {}, &Entry::date);
    return entries;
}

double ContractReceipts::sum(const QList<Entry> &entries, int kind)
{
    double sum = 0;
    for (const Entry &entry : entries)
        sum += entry.counts() && entry.kind == kind ? entry.amount : 0;
    return sum;
}

QString ContractReceipts::commissionText(int number)
{
    return u"بابت کمسیون قرارداد شماره %1"_s.arg(number);
}

ReceiptPurpose ContractReceipts::commission(const CTblAutomobilContracts &contract, int side)
{
    const int personID = contract.*(ContractSide::of(side).personID);
    // Told once: whoever then still receives it means another receipt.
    auto seen = std::make_shared<SeenCommission>(SeenCommission{
        contract.m_iID, side, personID, newestCommission(contract.m_iID, side, personID, contract.database())->m_iID, chargedOf(contract, side)});
    return {.recordKind = contractKind,
            .recordID = contract.m_iID,
            .what = ReceiptPurpose::Commission,
            .side = side,
            .text = u"کمیسیون قرارداد %1، %2"_s.arg(QString::number(contract.number()), ContractSide::nameOf(side)),
            .require = [seen] { requireCommissionDue(*seen); }};
}

void ContractReceipts::makeVoid(int contractID, const Entry &entry, const QString &reason)
{
    if (entry.receiptID != 0) {
        ReceiptPosting::makeVoid(entry.receiptID, reason);
        return;
    }
    if (reason.trimmed().isEmpty())
        throw FieldRefused(u"لطفا دلیل ابطال را وارد نمایید."_s, u"sVoidReason"_s);
    KTransaction::runReplayable([&] {
        CTblDocuments::lockBooks();
        OfficeClosing::requireOpen();
        requireRightToVoid();
        CTblAutomobilContracts contract;
        ContractLock::take(contract, contractID);
        if (hasReceipt(contractID, entry.paymentID))
            throw KAccountingError(u"برای این قسط در این میان دریافت ثبت شده است. لطفا لیست را دوباره باز نمایید."_s);
        if (StoredInstalments::lock(contractID, entry.paymentID) != StoredInstalments::State::Paid)
            throw KAccountingError(u"این قسط دیگر پرداخت شده نیست."_s);
        StoredInstalments::setPaid(entry.paymentID, false);
        keepReason(contractID, entry.paymentID, reason);
        for (const StoredInstalments::Row &row : StoredInstalments::loadLocked(contractID, StoredInstalments::Scope::AllDepartments)) {
            if (row.id == entry.paymentID)
                PlanTrace::notePaid(contractID, row.number, false);
        }
    });
}
