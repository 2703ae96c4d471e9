// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/cheques/ChequeReceipts.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/treasury/records/CTblChequeChanges.h"
#include "suite/treasury/records/CTblCheques.h"
#include "suite/treasury/records/ChequeStates.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

namespace {

QList<int> receiptKeys(const CTblCheques &cheque)
{
    CTblTemp query(cheque.database());
    query.Open(false, false, true);
    query.FormatAndExecuteQuery("SELECT iID FROM Receipts WHERE iChequeID=%d ORDER BY iID FOR UPDATE", cheque.m_iID);
    QList<int> keys;
    for (; query.HasResultRow(); query.MoveNextResult())
        keys.append(query.GetLongFieldValue(0));
    return keys;
}

// Whether whoever it was endorsed to keeps what it paid.
bool paysEndorsee(const CTblCheques &cheque, int from)
{
    const auto state = static_cast<ChequeState>(cheque.m_iState);
    return state == ChequeState::Endorsed || (state == ChequeState::Cleared && from == static_cast<int>(ChequeState::Endorsed));
}

[[noreturn]] void refuseWithoutOwner()
{
    throw KAccountingError(u"بخشی از برنامه که دریافت یا پرداخت این چک به آن تعلق دارد بارگذاری نشده است. چیزی ثبت نشد."_s);
}

}

ChequeReceipts::ChequeReceipts(int chequeID, int database)
{
    CTblReceipts receipts(database);
    receipts.SetColumns({u"iTable"_s, u"iRecordID"_s});
    receipts.m_filter = KSql::formatted("iChequeID=%1 AND iTable<>0", chequeID);
    for (receipts.Open(true, true, true); !receipts.IsEOF(); receipts.MoveNext())
        m_records.insert({{receipts.m_iTable, receipts.m_iRecordID}, ReceiptOwners::of(receipts.m_iTable)});
}

void ChequeReceipts::add(const QList<ReceiptPosting::Part> &parts)
{
    for (const ReceiptPosting::Part &part : parts) {
        const std::pair<int, int> record(part.purpose.recordKind, part.purpose.recordID);
        if (record.first == 0)
            continue;
        m_records.insert({record, ReceiptOwners::of(record.first)});
        m_paid.insert({record, ReceiptOwners::of(record.first)});
    }
}

void ChequeReceipts::lock(bool countAgain) const
{
    for (const auto &[record, owner] : m_records) {
        const bool mustExist = countAgain || m_paid.contains(record);
        if (owner)
            owner->lock(record.second, mustExist);
        else if (mustExist)
            refuseWithoutOwner();
    }
}

void ChequeReceipts::require(const QList<ReceiptPosting::Part> &parts)
{
    for (const ReceiptPosting::Part &part : parts) {
        if (part.purpose.require)
            part.purpose.require();
    }
}

void ChequeReceipts::recount(const CTblReceipts &receipt) const
{
    if (receipt.m_iTable == 0)
        return;
    const auto found = m_records.find({receipt.m_iTable, receipt.m_iRecordID});
    if (found == m_records.end() || !found->second)
        refuseWithoutOwner();
    found->second->recount(receipt);
}

void ChequeReceipts::follow(const CTblCheques &cheque, int from) const
{
    const QList<int> keys = receiptKeys(cheque);
    for (const int key : keys) {
        CTblReceipts receipt(cheque.database());
        if (!receipt.lockRecord(key) || receipt.m_iStatus == CTblReceipts::voided)
            continue;
        const bool isOwn = receipt.m_iKind == cheque.m_iKind;
        const bool counts = isOwn ? ChequeStates::counts(static_cast<ChequeState>(cheque.m_iState)) : paysEndorsee(cheque, from);
        const int status = counts ? CTblReceipts::valid : CTblReceipts::unpaid;
        if (receipt.m_iStatus == status)
            continue;
        receipt.Edit();
        receipt.m_iStatus = status;
        receipt.Update(true);
        recount(receipt);
    }
}

void ChequeReceipts::payEndorsee(const CTblCheques &cheque, const CTblChequeChanges &step, const QList<ReceiptPosting::Part> &parts) const
{
    for (const ReceiptPosting::Part &part : parts) {
        CTblReceipts receipt(cheque.database());
        receipt.AddNew();
        receipt.m_iKind = CTblReceipts::paid;
        receipt.m_iPersonID = step.m_iPersonID;
        receipt.m_date = step.m_date;
        receipt.m_dAmount = part.amount;
        receipt.m_sDesc = ConvertToStandard(part.desc).left(CTblReceipts::longestDescription);
        receipt.m_iUserID = step.m_iUserID;
        receipt.m_dateCreate = GetDBSetting()->GetDBServerDate();
        receipt.m_iMethod = CTblReceipts::cheque;
        receipt.m_iChequeID = cheque.m_iID;
        receipt.m_iTable = part.purpose.recordKind;
        receipt.m_iRecordID = part.purpose.recordID;
        receipt.m_iPaymentID = part.purpose.paymentID;
        receipt.m_iFor = part.purpose.what;
        receipt.m_iSide = part.purpose.side;
        receipt.m_sFor = part.purpose.text.left(CTblReceipts::longestPurpose);
        receipt.m_iDocNum = step.m_iDocNum;
        receipt.m_iFiscalYear = step.m_iFiscalYear;
        receipt.Update(true);
        receipt.m_iID = static_cast<qint32>(receipt.GetLastInsertedID());
        recount(receipt);
    }
}

void ChequeReceipts::takeBack(const CTblCheques &cheque, const CTblChequeChanges &step) const
{
    if (step.m_iToState != static_cast<qint32>(ChequeState::Endorsed))
        return;
    const QList<int> keys = receiptKeys(cheque);
    for (const int key : keys) {
        CTblReceipts receipt(cheque.database());
        if (!receipt.lockRecord(key) || receipt.m_iStatus == CTblReceipts::voided || receipt.m_iKind == cheque.m_iKind)
            continue;
        receipt.Edit();
        receipt.m_iStatus = CTblReceipts::voided;
        receipt.m_iVoidUserID = step.m_iVoidUserID;
        receipt.m_dateVoid = step.m_dateVoid;
        receipt.m_sVoidReason = step.m_sVoidReason;
        receipt.m_iVoidDocNum = step.m_iVoidDocNum;
        receipt.m_iVoidFiscalYear = step.m_iVoidFiscalYear;
        receipt.Update(true);
        recount(receipt);
    }
}
