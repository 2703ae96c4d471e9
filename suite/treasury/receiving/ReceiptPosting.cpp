// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receiving/ReceiptPosting.h"

#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/books/DocumentReversal.h"
#include "suite/accounting/books/DocumentWriter.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KLookup.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/treasury/records/ChequeEntry.h"
#include "suite/treasury/records/ChequeStates.h"
#include "suite/treasury/receiving/ReceiptDocumentRows.h"
#include "suite/treasury/records/ReceiptOwners.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"
#include "suite/utility/values/TextStandard.h"

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace {

using ReceiptPosting::Handover;
using ReceiptPosting::Part;
using ReceiptPosting::Posted;

// Always in the same order, so that two units never wait for each other.
using Records = std::map<std::pair<int, int>, const ReceiptOwner *>;

const ReceiptOwner &requireOwner(int recordKind)
{
    if (const ReceiptOwner *owner = ReceiptOwners::of(recordKind))
        return *owner;
    throw KAccountingError(u"بخشی از برنامه که این دریافت یا پرداخت به آن تعلق دارد بارگذاری نشده است. چیزی ثبت نشد."_s);
}

void addRecord(Records &records, int kind, int id)
{
    if (kind != 0)
        records.insert({{kind, id}, &requireOwner(kind)});
}

void lockAll(const Records &records, bool mustExist)
{
    for (const auto &[record, owner] : records)
        owner->lock(record.second, mustExist);
}

void recount(const Records &records, const CTblReceipts &receipt)
{
    if (const auto found = records.find({receipt.m_iTable, receipt.m_iRecordID}); found != records.end())
        found->second->recount(receipt);
}

void requireRight(KSecurity::Right right)
{
    const QString form = u"Receipts"_s;
    KSecurity::forgetRights();
    if (!KSecurity::IsGranted(form, right))
        throw KAccountingError(KSecurity::refusalText(form, right));
}

bool byCheque(const Handover &handover)
{
    return handover.method == CTblReceipts::cheque;
}

void requireSavable(const Handover &handover)
{
    if (handover.personID < 1)
        throw FieldRefused(u"لطفا شخص را انتخاب نمایید."_s, u"iPersonID"_s);
    if (handover.parts.isEmpty())
        throw FieldRefused(u"لطفا مبلغ را وارد نمایید."_s, u"dAmount"_s);
    for (const Part &part : handover.parts) {
        if (part.amount <= 0 || IsEquals(part.amount, 0))
            throw FieldRefused(u"لطفا مبلغ را وارد نمایید."_s, u"dAmount"_s);
    }
    if (byCheque(handover))
        ChequeEntry::requireComplete(handover.cheque.value_or(Cheque()));
    else if (handover.account < 1)
        throw FieldRefused(u"لطفا حساب صندوق یا بانک را انتخاب نمایید."_s, u"iAccount"_s);
    if (!handover.date.isValid())
        throw FieldRefused(u"لطفا تاریخ را وارد نمایید."_s, u"date"_s);
}

// What all parts of one handing over have in common besides what it says itself. Read within the unit, so that date and document
// are of the same year.
struct Frame
{
    int fiscalYear = 0;
    QDateTime now;
};

Frame frameOf(const Handover &handover, int database)
{
    const OfficeSettings settings = OfficeSettings::read({}, database);
    const QString refusal = settings.fiscalYearRefusal(handover.date.date(), CTblReceipts::kindName(handover.kind));
    if (!refusal.isEmpty())
        throw FieldRefused(refusal, u"date"_s);
    return {settings.fiscalYear(), settings.serverTime()};
}

// Locked, so that neither goes before the unit ends.
void requirePersonAndAccount(const Handover &handover, int database)
{
    CTblTemp query(database);
    query.Open(false, false, true);
    query.FormatAndExecuteQuery("SELECT iID FROM Persons WHERE iID=%d LOCK IN SHARE MODE", handover.personID);
    if (!query.HasResultRow())
        throw FieldRefused(u"این شخص دیگر وجود ندارد."_s, u"iPersonID"_s);
    if (byCheque(handover))
        return;
    query.FormatAndExecuteQuery("SELECT iStatus,sName FROM HesabMoeen WHERE iCode=%d LOCK IN SHARE MODE", handover.account);
    if (!query.HasResultRow())
        throw FieldRefused(u"لطفا حساب صندوق یا بانک را انتخاب نمایید."_s, u"iAccount"_s);
    if (query.GetLongFieldValue(0) != 0)
        throw FieldRefused(u"حساب «%1» غیرفعال شده است."_s.arg(query.GetTextFieldValue(1)), u"iAccount"_s);
}

int addCheque(const Handover &handover, int database)
{
    CTblCheques entry(database);
    entry.AddNew();
    entry.m_iKind = handover.kind;
    entry.m_iPersonID = handover.personID;
    for (const Part &part : handover.parts)
        entry.m_dAmount += part.amount;
    const Part &first = handover.parts.constFirst();
    entry.m_iTable = first.purpose.recordKind;
    entry.m_iRecordID = first.purpose.recordID;
    entry.m_sFor = first.purpose.text.left(CTblReceipts::longestPurpose);
    entry.m_sDesc = first.desc.left(CTblReceipts::longestDescription);
    ChequeEntry::add(entry, *handover.cheque);
    return entry.m_iID;
}

int moneyAccount(const Handover &handover)
{
    if (!byCheque(handover))
        return handover.account;
    return handover.kind == CTblReceipts::paid ? Accounts::chequesPayable : Accounts::chequesInHand;
}

void writeDocument(CTblReceipts &receipt, const Handover &handover, const Frame &frame)
{
    DocumentWriter document({receipt.m_date, receipt.m_sDesc,
                             receiptDocumentRows({handover.kind == CTblReceipts::paid, receipt.m_iPersonID, receipt.m_dAmount,
                                                  moneyAccount(handover), receipt.m_sDesc})},
                            receipt.database());
    const int kind = handover.kind == CTblReceipts::paid ? Accounts::documentKindPayment : Accounts::documentKindReceipt;
    if (!document.add(kind, frame.fiscalYear))
        throw KAccountingError(u"سند %1 ایجاد نشد."_s.arg(CTblReceipts::kindName(handover.kind)));
    document.writeRows();
    receipt.m_iDocNum = document.num();
    receipt.m_iFiscalYear = document.fiscalYear();
}

void addReceipt(CTblReceipts &receipt, const Handover &handover, const Part &part, int chequeID, const Frame &frame)
{
    receipt.AddNew();
    receipt.m_iKind = handover.kind;
    receipt.m_iPersonID = handover.personID;
    receipt.m_date = handover.date;
    receipt.m_dAmount = part.amount;
    receipt.m_sDesc = ConvertToStandard(part.desc).left(CTblReceipts::longestDescription);
    receipt.m_iUserID = GetDBSetting()->GetUserID();
    receipt.m_dateCreate = frame.now;
    receipt.m_iMethod = handover.method;
    receipt.m_iAccount = byCheque(handover) ? 0 : handover.account;
    receipt.m_iChequeID = chequeID;
    receipt.m_iTable = part.purpose.recordKind;
    receipt.m_iRecordID = part.purpose.recordID;
    receipt.m_iPaymentID = part.purpose.paymentID;
    receipt.m_iFor = part.purpose.what;
    receipt.m_iSide = part.purpose.side;
    receipt.m_sFor = part.purpose.text.left(CTblReceipts::longestPurpose);
    writeDocument(receipt, handover, frame);
    receipt.Update(true);
    receipt.m_iID = static_cast<qint32>(receipt.GetLastInsertedID());
}

QList<Posted> saveUnit(const Handover &handover, int database)
{
    CTblDocuments::lockBooks(database);
    OfficeClosing::requireOpen(database);
    Records records;
    for (const Part &part : handover.parts)
        addRecord(records, part.purpose.recordKind, part.purpose.recordID);
    lockAll(records, true);
    for (const Part &part : handover.parts) {
        if (part.purpose.require)
            part.purpose.require();
    }
    requirePersonAndAccount(handover, database);
    const Frame frame = frameOf(handover, database);
    const int chequeID = byCheque(handover) ? addCheque(handover, database) : 0;
    QList<Posted> posted;
    for (const Part &part : handover.parts) {
        CTblReceipts receipt(database);
        addReceipt(receipt, handover, part, chequeID, frame);
        recount(records, receipt);
        posted.append({receipt.m_iID, receipt.m_iDocNum, receipt.m_iFiscalYear, chequeID});
    }
    return posted;
}

// What came with the same cheque, all of it at once; but not what was made void before, with an endorsement that was taken back.
QList<int> togetherWith(const CTblReceipts &asked)
{
    if (asked.m_iChequeID == 0)
        return {asked.m_iID};
    CTblReceipts set(asked.database());
    set.SetColumns({u"iChequeID"_s});
    set.m_filter = KSql::formatted("iChequeID=%1 AND (iStatus<>%2 OR iID=%3)", asked.m_iChequeID, int(CTblReceipts::voided), asked.m_iID);
    set.m_sort = "iID";
    QList<int> keys;
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        keys.append(set.m_iID);
    return keys;
}

void requireVoidable(CTblReceipts &receipt, int id)
{
    const QString kind = CTblReceipts::kindName(receipt.m_iKind);
    if (!receipt.lockRecord(id))
        throw KAccountingError(u"این %1 دیگر وجود ندارد."_s.arg(kind));
    if (receipt.m_iStatus == CTblReceipts::voided)
        throw KAccountingError(u"این %1 را کاربر «%2» در %3 باطل کرده است."_s.arg(
            CTblReceipts::kindName(receipt.m_iKind), CTblUsers::GetName(receipt.m_iVoidUserID, receipt.database()), shamsiText(receipt.m_dateVoid.date())));
}

// Empty for a cheque that still lies where it came to.
QString wayRefusal(const CTblCheques &cheque)
{
    const auto state = static_cast<ChequeState>(cheque.m_iState);
    if (state == ChequeState::Void || state == ChequeState::InHand)
        return {};
    const bool isGiven = cheque.m_iKind == CTblReceipts::paid;
    return u"چک %1 در وضعیت «%2» است. ابتدا گردش آن را در فهرست چک‌ها برگردانید."_s.arg(cheque.m_sSayad, ChequeStates::name(state, isGiven));
}

void voidCheque(int chequeID, int database)
{
    CTblCheques cheque(database);
    if (chequeID == 0 || !cheque.lockRecord(chequeID) || static_cast<ChequeState>(cheque.m_iState) == ChequeState::Void)
        return;
    if (const QString refusal = wayRefusal(cheque); !refusal.isEmpty())
        throw KAccountingError(refusal);
    cheque.Edit();
    cheque.m_iState = static_cast<qint32>(ChequeState::Void);
    cheque.Update(true);
}

void voidOne(CTblReceipts &receipt, const QString &why)
{
    const QString desc = u"ابطال %1 شماره %2: %3"_s.arg(CTblReceipts::kindName(receipt.m_iKind), QString::number(receipt.m_iID), why);
    const DocumentReversal::Reversing reversing = DocumentReversal::takeBack(receipt.m_iDocNum, receipt.m_iFiscalYear, desc, receipt.database());
    receipt.Edit();
    receipt.m_iStatus = CTblReceipts::voided;
    receipt.m_iVoidUserID = GetDBSetting()->GetUserID();
    receipt.m_dateVoid = GetDBSetting()->GetDBServerDate();
    receipt.m_sVoidReason = why;
    receipt.m_iVoidDocNum = reversing.num;
    receipt.m_iVoidFiscalYear = reversing.fiscalYear;
    receipt.Update(true);
}

void voidUnit(int chequeID, const QList<int> &keys, const Records &records, const QString &why, int database)
{
    CTblDocuments::lockBooks(database);
    OfficeClosing::requireOpen(database);
    lockAll(records, false);
    voidCheque(chequeID, database);
    for (const int key : keys) {
        CTblReceipts receipt(database);
        requireVoidable(receipt, key);
        voidOne(receipt, why);
        recount(records, receipt);
    }
}

}

QList<ReceiptPosting::Posted> ReceiptPosting::save(const Handover &handover, int database)
{
    GetDBSetting()->RequireOpenDB();
    requireRight(KSecurity::Write);
    requireSavable(handover);
    QList<Posted> posted;
    KTransaction::runReplayable([&] { posted = saveUnit(handover, database); }, database);
    return posted;
}

QString ReceiptPosting::voidRefusal(int receiptID, int database)
{
    CTblReceipts receipt(database);
    CTblCheques cheque(database);
    const bool isByCheque = receipt.IsRecordExist(u"iID"_s, receiptID) && receipt.m_iChequeID != 0;
    return isByCheque && cheque.IsRecordExist(u"iID"_s, receipt.m_iChequeID) ? wayRefusal(cheque) : QString();
}

QList<int> ReceiptPosting::handedOverWith(int receiptID, int database)
{
    CTblReceipts asked(database);
    if (!asked.IsRecordExist(u"iID"_s, receiptID) || asked.m_iChequeID != 0 || !asked.m_dateCreate.isValid())
        return {};
    CTblTemp query(database);
    query.Open(true, false, true);
    query.FormatAndExecuteQuery("SELECT r.iID FROM Receipts AS r JOIN Receipts AS a ON a.iID=%d AND r.iID<>a.iID AND r.iPersonID=a.iPersonID "
                                "AND r.dateCreate=a.dateCreate AND r.date=a.date AND r.iUserID=a.iUserID AND r.iKind=a.iKind AND r.iMethod=a.iMethod "
                                "AND r.iAccount=a.iAccount WHERE r.iStatus=%d AND r.iChequeID=0 ORDER BY r.iID",
                                receiptID, int(CTblReceipts::valid));
    QList<int> keys;
    for (; query.HasResultRow(); query.MoveNextResult())
        keys.append(query.GetLongFieldValue(0));
    return keys;
}

void ReceiptPosting::makeVoid(int receiptID, const QString &reason, int database)
{
    makeVoid(QList<int>{receiptID}, reason, database);
}

void ReceiptPosting::makeVoid(const QList<int> &receipts, const QString &reason, int database)
{
    GetDBSetting()->RequireOpenDB();
    requireRight(KSecurity::Delete);
    const QString why = ConvertToStandard(reason).trimmed().left(CTblReceipts::longestReason);
    if (why.isEmpty())
        throw FieldRefused(u"لطفا دلیل ابطال را وارد نمایید."_s, u"sVoidReason"_s);
    // What a receipt is for, and what came with its cheque, never changes: read before the unit, whose first reading is a lock.
    QList<int> keys;
    int chequeID = 0;
    for (const int receiptID : receipts) {
        CTblReceipts asked(database);
        if (!asked.IsRecordExist(u"iID"_s, receiptID))
            throw KAccountingError(u"این دریافت دیگر وجود ندارد."_s);
        chequeID = asked.m_iChequeID;
        keys += togetherWith(asked);
    }
    std::ranges::sort(keys);
    Records records;
    for (const int key : keys) {
        CTblReceipts receipt(database);
        if (receipt.IsRecordExist(u"iID"_s, key))
            addRecord(records, receipt.m_iTable, receipt.m_iRecordID);
    }
    KTransaction::runReplayable([&] { voidUnit(chequeID, keys, records, why, database); }, database);
}
