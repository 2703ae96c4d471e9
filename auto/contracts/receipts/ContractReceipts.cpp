// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/receipts/ContractReceipts.h"

#include "auto/contracts/instalments/StoredInstalments.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/ContractLock.h"
#include "suite/treasury/CTblReceipts.h"
#include "suite/treasury/ReceiptPosting.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/db/CTblTemp.h"
#include "suite/db/KTransaction.h"
#include "suite/utility/values/Money.h"

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

using ContractReceipts::Entry;

constexpr int contractKind = CTblAutomobilContracts::recordKind;

Entry entryOf(const CTblReceipts &receipt)
{
    return {receipt.m_iID, receipt.m_iPaymentID, receipt.m_iPersonID, receipt.m_date, receipt.m_dAmount, receipt.m_sDesc,
            receipt.m_iDocNum, receipt.m_iFiscalYear, receipt.m_iStatus == CTblReceipts::voided, receipt.m_iVoidUserID,
            receipt.m_dateVoid, receipt.m_sVoidReason};
}

QList<Entry> entriesOf(const KSql &filter, int database)
{
    CTblReceipts receipts(database);
    receipts.m_filter = filter;
    QList<Entry> entries;
    for (receipts.Open(false, true, true); !receipts.IsEOF(); receipts.MoveNext())
        entries.append(entryOf(receipts));
    return entries;
}

QList<Entry> linked(const CTblAutomobilContracts &contract)
{
    return entriesOf(KSql::formatted("iTable=%1 AND iRecordID=%2", contractKind, contract.m_iID), contract.database());
}

// Older receipts of that person with that text, which the database compares more loosely.
QList<Entry> unlinked(int personID, const QString &text, int database)
{
    if (personID < 1)
        return {};
    QList<Entry> entries = entriesOf(
        KSql::formatted("iTable=0 AND iPersonID=%1 AND sDesc=%2", personID, KSql::quoted(text)), database);
    entries.removeIf([&text](const Entry &entry) { return entry.description != text; });
    return entries;
}

QList<Entry> olderCommission(const CTblAutomobilContracts &contract)
{
    const QString text = ContractReceipts::commissionText(contract.number());
    QList<Entry> entries = unlinked(contract.m_iPersonFirstID, text, contract.database());
    if (contract.m_iPersonSecondID != contract.m_iPersonFirstID)
        entries += unlinked(contract.m_iPersonSecondID, text, contract.database());
    return entries;
}

// The instalment with the older receipt behind it, if one is found.
Entry olderInstalment(Entry paid, int number, const CTblAutomobilContracts &contract)
{
    const QString text = StoredInstalments::receiptText(number, contract.m_iCode);
    for (const Entry &receipt : unlinked(paid.personID, text, contract.database())) {
        if (receipt.isVoid)
            continue;
        const int paymentID = paid.paymentID;
        paid = receipt;
        paid.paymentID = paymentID;
    }
    return paid;
}

QList<Entry> paidWithoutReceipt(const CTblAutomobilContracts &contract)
{
    CTblTemp payments(contract.database());
    payments.FormatAndExecuteQuery("SELECT p.iID,p.iNum,p.iPersonID,p.date,p.dAmount,p.sDesc FROM AutomobilPayments p "
                                   "WHERE p.iAutomobilContractID=%d AND p.iStatus=1 AND NOT EXISTS (SELECT 1 FROM Receipts r "
                                   "WHERE r.iTable=%d AND r.iRecordID=p.iAutomobilContractID AND r.iPaymentID=p.iID AND r.iStatus=%d)",
                                   contract.m_iID, contractKind, int(CTblReceipts::valid));
    QList<Entry> entries;
    for (; payments.HasResultRow(); payments.MoveNextResult()) {
        Entry paid;
        paid.paymentID = payments.GetLongFieldValue(0);
        paid.personID = payments.GetLongFieldValue(2);
        paid.date = payments.GetDateFieldValue(3);
        paid.amount = payments.GetDoubleFieldValue(4);
        paid.description = payments.GetTextFieldValue(5);
        entries.append(olderInstalment(paid, payments.GetLongFieldValue(1), contract));
    }
    return entries;
}

// The newest valid receipt of commission from that party.
std::unique_ptr<CTblReceipts> newestCommission(const CTblAutomobilContracts &contract, int personID)
{
    auto receipt = std::make_unique<CTblReceipts>(contract.database());
    receipt->m_filter = KSql::formatted("iTable=%1 AND iRecordID=%2 AND iPersonID=%3 AND iPaymentID=0 AND iStatus=%4", contractKind,
                                        contract.m_iID, personID, int(CTblReceipts::valid));
    receipt->m_sort = "iID DESC";
    receipt->SetLimit(1);
    receipt->Open(false, true, true);
    return receipt;
}

void requireCommissionDue(int contractID, int personID, int &seen)
{
    CTblAutomobilContracts contract;
    ContractLock::take(contract, contractID);
    if (contract.m_iStatus == 1)
        throw KAccountingError(u"این قرارداد باطل شده است."_s);
    const std::unique_ptr<CTblReceipts> newest = newestCommission(contract, personID);
    if (newest->m_iID <= seen)
        return;
    seen = newest->m_iID;
    throw KAccountingError(u"در این میان کاربر «%1» مبلغ %2 را با سند شماره %3 بابت همین قرارداد از همین شخص دریافت کرده است. چیزی "
                           "ثبت نشد؛ اگر این دریافت دیگری است، دوباره «تایید» را بزنید."_s
                               .arg(CTblUsers::GetName(newest->m_iUserID), DToMoney(newest->m_dAmount), QString::number(newest->m_iDocNum)));
}

// Whether the instalment was received by a receipt of its own that stands.
bool hasReceipt(int contractID, int paymentID)
{
    CTblReceipts receipt;
    receipt.SetColumns({u"iPaymentID"_s});
    receipt.m_filter = KSql::formatted("iTable=%1 AND iRecordID=%2 AND iPaymentID=%3 AND iStatus=%4", int(CTblAutomobilContracts::recordKind),
                                       contractID, paymentID, int(CTblReceipts::valid));
    receipt.Open(false, true, true);
    return !receipt.IsEOF();
}

}

QList<ContractReceipts::Entry> ContractReceipts::list(const CTblAutomobilContracts &contract)
{
    QList<Entry> entries = linked(contract) + olderCommission(contract) + paidWithoutReceipt(contract);
    std::ranges::stable_sort(entries, {}, &Entry::date);
    return entries;
}

double ContractReceipts::sum(const QList<Entry> &entries)
{
    double sum = 0;
    for (const Entry &entry : entries)
        sum += entry.isVoid ? 0 : entry.amount;
    return sum;
}

QString ContractReceipts::commissionText(int number)
{
    return u"بابت کمسیون قرارداد شماره %1"_s.arg(number);
}

ReceiptPurpose ContractReceipts::commission(const CTblAutomobilContracts &contract, int personID)
{
    // Told once: whoever then still receives it means another receipt.
    auto seen = std::make_shared<int>(newestCommission(contract, personID)->m_iID);
    const int contractID = contract.m_iID;
    const bool isFirst = personID == contract.m_iPersonFirstID;
    return {.recordKind = contractKind,
            .recordID = contractID,
            .what = ReceiptPurpose::Commission,
            .side = isFirst ? 1 : 2,
            .text = u"کمیسیون قرارداد %1، %2"_s.arg(QString::number(contract.number()), isFirst ? u"فروشنده"_s : u"خریدار"_s),
            .require = [=] { requireCommissionDue(contractID, personID, *seen); }};
}

void ContractReceipts::makeVoid(int contractID, const Entry &entry, const QString &reason)
{
    if (entry.receiptID != 0) {
        ReceiptPosting::makeVoid(entry.receiptID, reason);
        return;
    }
    KTransaction::runReplayable([&] {
        OfficeClosing::requireOpen();
        CTblAutomobilContracts contract;
        ContractLock::take(contract, contractID);
        if (hasReceipt(contractID, entry.paymentID))
            throw KAccountingError(u"برای این قسط در این میان دریافت ثبت شده است. لطفا لیست را دوباره باز نمایید."_s);
        if (StoredInstalments::lock(contractID, entry.paymentID) != StoredInstalments::State::Paid)
            throw KAccountingError(u"این قسط دیگر پرداخت شده نیست."_s);
        StoredInstalments::setPaid(entry.paymentID, false);
    });
}
