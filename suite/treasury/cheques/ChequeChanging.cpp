// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/cheques/ChequeChanging.h"

#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/books/DocumentReversal.h"
#include "suite/accounting/books/DocumentWriter.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/treasury/records/CTblChequeChanges.h"
#include "suite/treasury/records/CTblCheques.h"
#include "suite/treasury/records/ChequeEntry.h"
#include "suite/treasury/cheques/ChequeReceipts.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

namespace {

using ChequeChanging::Change;
using ChequeChanging::Changed;
using ChequeChanging::Seen;

ChequeState stateOf(const CTblCheques &cheque)
{
    return static_cast<ChequeState>(cheque.m_iState);
}

bool isGiven(const CTblCheques &cheque)
{
    return cheque.m_iKind == CTblReceipts::paid;
}

void requireGranted(KSecurity::Right right)
{
    KSecurity::forgetRights();
    if (!KSecurity::IsGranted(ChequeChanging::rightsForm(), right))
        throw KAccountingError(KSecurity::refusalText(ChequeChanging::rightsForm(), right));
}

// The key of the last valid step, as it is now; within the lock of the cheque.
int lastChangeOf(const CTblCheques &cheque)
{
    CTblTemp query(cheque.database());
    query.Open(false, false, true);
    query.FormatAndExecuteQuery("SELECT iID FROM ChequeChanges WHERE iChequeID=%d AND iStatus=%d ORDER BY iID DESC LIMIT 1 FOR UPDATE",
                                cheque.m_iID, int(CTblChequeChanges::valid));
    return query.GetLongFieldValue(0);
}

void lockAsSeen(CTblCheques &cheque, const Seen &seen)
{
    if (!cheque.lockRecord(seen.chequeID))
        throw RowChanged(RowChanged::Kind::Gone, cheque, seen.chequeID, u"این چک"_s);
    if (stateOf(cheque) == seen.state && lastChangeOf(cheque) == seen.lastChange)
        return;
    const QString who = RowChanged::lastChange(cheque.GetTableName(), cheque.m_iID, cheque.database());
    throw KAccountingError(u"%1 وضعیت این چک را در این میان تغییر داده است و اکنون «%2» است. چیزی ثبت نشد."_s.arg(
        who, ChequeStates::name(stateOf(cheque), isGiven(cheque))));
}

// When the cheque came into the state that it is in.
QDate stateSince(const CTblCheques &cheque, int lastChange)
{
    CTblTemp query(cheque.database());
    query.Open(false, false, true);
    if (lastChange != 0)
        query.FormatAndExecuteQuery("SELECT date FROM ChequeChanges WHERE iID=%d FOR UPDATE", lastChange);
    else
        query.FormatAndExecuteQuery("SELECT MIN(date) FROM Receipts WHERE iChequeID=%d AND iStatus<>%d FOR UPDATE", cheque.m_iID,
                                    int(CTblReceipts::voided));
    return query.GetDateFieldValue(0).date();
}

void requireDate(const Change &change, const CTblCheques &cheque)
{
    const QDate day = change.date.date();
    if (!day.isValid())
        throw FieldRefused(u"لطفا تاریخ را وارد نمایید."_s, u"date"_s);
    const QDate since = stateSince(cheque, change.seen.lastChange);
    if (since.isValid() && day < since)
        throw FieldRefused(u"تاریخ تغییر وضعیت از تاریخ آخرین گردش چک (%1) کوچکتر است."_s.arg(shamsiText(since)), u"date"_s);
    const OfficeSettings settings = OfficeSettings::read({}, cheque.database());
    if (day > settings.serverTime().date())
        throw FieldRefused(u"تاریخ تغییر وضعیت پس از امروز (%1) است."_s.arg(shamsiText(settings.serverTime().date())), u"date"_s);
    const QString refusal = settings.fiscalYearRefusal(day, u"تغییر وضعیت چک"_s);
    if (!refusal.isEmpty())
        throw FieldRefused(refusal, u"date"_s);
}

void requireAccount(const Change &change, const CTblCheques &cheque)
{
    const int kol = Accounts::kolOf(change.account);
    // A bank collects, and a bank pays what the office gave; only a received cheque can become cash.
    const bool mayBeCash = change.to == ChequeState::Cleared && !isGiven(cheque);
    if (kol != Accounts::bankKol && !(mayBeCash && kol == Accounts::cashKol))
        throw FieldRefused(u"لطفا حساب را انتخاب نمایید."_s, u"iAccount"_s);
    CTblTemp query(cheque.database());
    query.Open(false, false, true);
    query.FormatAndExecuteQuery("SELECT iStatus,sName FROM HesabMoeen WHERE iCode=%d LOCK IN SHARE MODE", change.account);
    if (!query.HasResultRow())
        throw FieldRefused(u"این حساب دیگر وجود ندارد."_s, u"iAccount"_s);
    if (query.GetLongFieldValue(0) != 0)
        throw FieldRefused(u"حساب «%1» غیرفعال شده است."_s.arg(query.GetTextFieldValue(1)), u"iAccount"_s);
}

void requireEndorsee(const Change &change, const CTblCheques &cheque)
{
    if (change.endorsedID < 1)
        throw FieldRefused(u"لطفا شخصی را که چک به او داده می‌شود انتخاب نمایید."_s, u"iEndorsedID"_s);
    if (change.endorsedID == cheque.m_iPersonID)
        throw FieldRefused(u"این چک از همین شخص دریافت شده است؛ برای پس دادن آن «%1» را انتخاب نمایید."_s.arg(ChequeStates::name(ChequeState::Returned)),
                           u"iEndorsedID"_s);
    CTblTemp query(cheque.database());
    query.Open(false, false, true);
    query.FormatAndExecuteQuery("SELECT iID FROM Persons WHERE iID=%d LOCK IN SHARE MODE", change.endorsedID);
    if (!query.HasResultRow())
        throw FieldRefused(u"این شخص دیگر وجود ندارد."_s, u"iEndorsedID"_s);
    ChequeReceipts::require(change.pays);
}

// All of it on account unless it is said what it pays.
QList<ReceiptPosting::Part> partsOf(const Change &change, const CTblCheques &cheque)
{
    const QString desc = u"خرج %1"_s.arg(ChequeChanging::nameOf(cheque));
    if (change.pays.isEmpty())
        return {{cheque.m_dAmount, desc, {}}};
    double sum = 0;
    QList<ReceiptPosting::Part> parts = change.pays;
    for (ReceiptPosting::Part &part : parts) {
        sum += part.amount;
        if (part.desc.isEmpty())
            part.desc = desc;
    }
    if (!IsEquals(sum, cheque.m_dAmount))
        throw KAccountingError(u"جمع آنچه با این چک پرداخت می‌شود با مبلغ چک برابر نیست."_s);
    return parts;
}

void requireStep(const Change &change, const CTblCheques &cheque)
{
    if (!ChequeStates::following(stateOf(cheque), isGiven(cheque)).contains(change.to))
        throw FieldRefused(u"لطفا وضعیت جدید چک را انتخاب نمایید."_s, u"iState"_s);
    requireDate(change, cheque);
    if (ChequeStates::needsAccount(stateOf(cheque), change.to))
        requireAccount(change, cheque);
    if (ChequeStates::needsPerson(change.to))
        requireEndorsee(change, cheque);
}

// The step's document; its number and year stay 0 where nothing is booked.
void writeStepDocument(CTblChequeChanges &step, const CTblCheques &cheque)
{
    const auto to = static_cast<ChequeState>(step.m_iToState);
    const QString desc = u"%1: %2"_s.arg(ChequeChanging::nameOf(cheque), ChequeStates::name(to, isGiven(cheque)));
    const QList<DocumentRow> rows =
        ChequeStates::rowsOf({.given = isGiven(cheque),
                              .from = static_cast<ChequeState>(step.m_iFromState),
                              .to = to,
                              .amount = cheque.m_dAmount,
                              .personID = cheque.m_iPersonID,
                              .endorsedID = step.m_iPersonID != 0 ? step.m_iPersonID : cheque.m_iEndorsedID,
                              .account = step.m_iAccount,
                              .desc = desc});
    if (rows.isEmpty())
        return;
    DocumentWriter document({step.m_date, desc, rows}, step.database());
    if (!document.add(Accounts::documentKindCheque, GetDBSetting()->FiscalYear()))
        throw KAccountingError(u"سند چک ایجاد نشد."_s);
    document.writeRows();
    step.m_iDocNum = document.num();
    step.m_iFiscalYear = document.fiscalYear();
}

void addStep(CTblChequeChanges &step, const Change &change, const CTblCheques &cheque)
{
    step.AddNew();
    step.m_iChequeID = cheque.m_iID;
    step.m_iFromState = cheque.m_iState;
    step.m_iToState = static_cast<qint32>(change.to);
    step.m_date = change.date;
    step.m_iAccount = ChequeStates::needsAccount(stateOf(cheque), change.to) ? change.account : 0;
    step.m_iPersonID = ChequeStates::needsPerson(change.to) ? change.endorsedID : 0;
    step.m_sDesc = ConvertToStandard(change.desc).left(CTblChequeChanges::longestDescription);
    step.m_iUserID = GetDBSetting()->GetUserID();
    writeStepDocument(step, cheque);
    step.Update(true);
    step.m_iID = static_cast<qint32>(step.GetLastInsertedID());
}

// Bank account and endorsee are those of the last valid step that has one.
int lastOf(const char *column, const CTblCheques &cheque)
{
    CTblTemp query(cheque.database());
    query.Open(false, false, true);
    const KSql name = KSql::name(QString::fromLatin1(column));
    query.ExecuteQuery(KSql::formatted("SELECT %1 FROM ChequeChanges WHERE iChequeID=%2 AND iStatus=%3 AND %1<>0 ORDER BY iID DESC LIMIT 1 FOR UPDATE",
                                       name, cheque.m_iID, int(CTblChequeChanges::valid)));
    return query.GetLongFieldValue(0);
}

void storeState(CTblCheques &cheque, ChequeState state)
{
    cheque.Edit();
    cheque.m_iState = static_cast<qint32>(state);
    cheque.m_iAccount = lastOf("iAccount", cheque);
    cheque.m_iEndorsedID = lastOf("iPersonID", cheque);
    cheque.Update(true);
}

Changed changeUnit(const Change &change, const ChequeReceipts &receipts, int database)
{
    CTblDocuments::lockBooks(database);
    OfficeClosing::requireOpen(database);
    receipts.lock(!ChequeStates::counts(change.seen.state) && ChequeStates::counts(change.to));
    CTblCheques cheque(database);
    lockAsSeen(cheque, change.seen);
    requireStep(change, cheque);
    CTblChequeChanges step(database);
    addStep(step, change, cheque);
    storeState(cheque, change.to);
    receipts.follow(cheque, step.m_iFromState);
    if (change.to == ChequeState::Endorsed)
        receipts.payEndorsee(cheque, step, partsOf(change, cheque));
    return {step.m_iID, step.m_iDocNum, step.m_iFiscalYear};
}

void voidStep(CTblChequeChanges &step, const CTblCheques &cheque, const QString &why)
{
    DocumentReversal::Reversing reversing;
    if (step.m_iDocNum != 0) {
        const QString desc = u"برگرداندن گردش %1: %2"_s.arg(ChequeChanging::nameOf(cheque), why);
        reversing = DocumentReversal::takeBack(step.m_iDocNum, step.m_iFiscalYear, desc, step.database());
    }
    step.Edit();
    step.m_iStatus = CTblChequeChanges::voided;
    step.m_iVoidUserID = GetDBSetting()->GetUserID();
    step.m_dateVoid = GetDBSetting()->GetDBServerDate();
    step.m_sVoidReason = why;
    step.m_iVoidDocNum = reversing.num;
    step.m_iVoidFiscalYear = reversing.fiscalYear;
    step.Update(true);
}

// One that was given back can have come again meanwhile.
void requireSayadFree(const CTblCheques &cheque, ChequeState back)
{
    if (stateOf(cheque) == ChequeState::Returned && back != ChequeState::Returned)
        ChequeEntry::requireUnused(cheque, cheque.m_sSayad);
}

void undoUnit(const Seen &seen, const ChequeReceipts &receipts, const QString &why, int database)
{
    CTblDocuments::lockBooks(database);
    OfficeClosing::requireOpen(database);
    receipts.lock(!ChequeStates::counts(seen.state));
    CTblCheques cheque(database);
    lockAsSeen(cheque, seen);
    CTblChequeChanges step(database);
    if (seen.lastChange == 0 || !step.lockRecord(seen.lastChange))
        throw KAccountingError(u"این چک تغییر وضعیتی ندارد که برگردانده شود."_s);
    const auto back = static_cast<ChequeState>(step.m_iFromState);
    requireSayadFree(cheque, back);
    voidStep(step, cheque, why);
    storeState(cheque, back);
    receipts.takeBack(cheque, step);
    receipts.follow(cheque, step.m_iToState);
}

}

QString ChequeChanging::rightsForm()
{
    return u"Cheques"_s;
}

ChequeChanging::Seen ChequeChanging::seen(int chequeID, int database)
{
    CTblTemp query(database);
    query.Open(true, false, true);
    query.FormatAndExecuteQuery("SELECT c.iID,c.iState,(SELECT MAX(h.iID) FROM ChequeChanges h WHERE h.iChequeID=c.iID AND h.iStatus=%d) "
                                "FROM Cheques c WHERE c.iID=%d",
                                int(CTblChequeChanges::valid), chequeID);
    return {query.GetLongFieldValue(0), static_cast<ChequeState>(query.GetLongFieldValue(1)), query.GetLongFieldValue(2)};
}

QString ChequeChanging::nameOf(const CTblCheques &cheque)
{
    const QString kind = isGiven(cheque) ? u"چک پرداختی"_s : u"چک دریافتی"_s;
    const QString number = cheque.m_sNumber.isEmpty() ? u"با شناسه صیادی %1"_s.arg(cheque.m_sSayad) : u"شماره %1"_s.arg(cheque.m_sNumber);
    const QString word = u"بانک "_s;
    const QString bank = cheque.m_sBank.startsWith(word) ? cheque.m_sBank : word + cheque.m_sBank;
    return cheque.m_sBank.isEmpty() ? u"%1 %2"_s.arg(kind, number) : u"%1 %2، %3"_s.arg(kind, number, bank);
}

ChequeChanging::Changed ChequeChanging::change(const Change &change, int database)
{
    GetDBSetting()->RequireOpenDB();
    requireGranted(KSecurity::Modify);
    ChequeReceipts receipts(change.seen.chequeID, database);
    receipts.add(change.to == ChequeState::Endorsed ? change.pays : QList<ReceiptPosting::Part>());
    Changed changed;
    KTransaction::runReplayable([&] { changed = changeUnit(change, receipts, database); }, database);
    return changed;
}

void ChequeChanging::undoLast(const Seen &seen, const QString &reason, int database)
{
    GetDBSetting()->RequireOpenDB();
    requireGranted(KSecurity::Delete);
    const QString why = ConvertToStandard(reason).trimmed().left(CTblReceipts::longestReason);
    if (why.isEmpty())
        throw FieldRefused(u"لطفا دلیل برگرداندن را وارد نمایید."_s, u"sVoidReason"_s);
    const ChequeReceipts receipts(seen.chequeID, database);
    KTransaction::runReplayable([&] { undoUnit(seen, receipts, why, database); }, database);
}
