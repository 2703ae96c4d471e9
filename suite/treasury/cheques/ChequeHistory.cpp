// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/cheques/ChequeHistory.h"

#include "suite/accounting/office/CTblUsers.h"
#include "suite/db/records/KLookup.h"
#include "suite/treasury/records/CTblChequeChanges.h"
#include "suite/treasury/records/CTblCheques.h"
#include "suite/treasury/records/CTblReceipts.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

using ChequeHistory::Entry;

QString voidingText(int userID, const QDateTime &when, const QString &reason, int database)
{
    return u"%1، %2: %3"_s.arg(CTblUsers::GetName(userID, database), shamsiText(when.date()), reason);
}

// How the cheque came, or went out; what it paid once it was endorsed belongs to that step.
QList<Entry> handovers(const CTblCheques &cheque)
{
    const int database = cheque.database();
    CTblReceipts receipts(database);
    receipts.m_filter = KSql::formatted("iChequeID=%1 AND iKind=%2", cheque.m_iID, cheque.m_iKind);
    receipts.m_sort = "iID";
    QList<Entry> entries;
    for (receipts.Open(true, true, true); !receipts.IsEOF(); receipts.MoveNext()) {
        const bool isVoid = receipts.m_iStatus == CTblReceipts::voided;
        const QString purpose = receipts.m_sFor.isEmpty() ? u"علی‌الحساب"_s : receipts.m_sFor;
        entries.append({.date = receipts.m_date,
                        .what = u"%1 شماره %2"_s.arg(CTblReceipts::kindName(receipts.m_iKind)).arg(receipts.m_iID),
                        .detail = u"%1: %2"_s.arg(purpose, DToMoney(receipts.m_dAmount)),
                        .docNum = receipts.m_iDocNum,
                        .fiscalYear = receipts.m_iFiscalYear,
                        .user = CTblUsers::GetName(receipts.m_iUserID, database),
                        .isVoid = isVoid,
                        .voiding = isVoid ? voidingText(receipts.m_iVoidUserID, receipts.m_dateVoid, receipts.m_sVoidReason, database) : QString()});
    }
    return entries;
}

QString detailOf(const CTblChequeChanges &step)
{
    QStringList parts;
    if (step.m_iAccount != 0)
        parts.append(KLookup::name<CTblChequeChanges>(u"iAccount", step.m_iAccount, step.database()));
    if (step.m_iPersonID != 0)
        parts.append(KLookup::name<CTblChequeChanges>(u"iPersonID", step.m_iPersonID, step.database()));
    parts.append(step.m_sDesc);
    parts.removeAll(QString());
    return parts.join(u"، "_s);
}

}

QList<ChequeHistory::Entry> ChequeHistory::of(int chequeID, int database)
{
    CTblCheques cheque(database);
    if (!cheque.IsRecordExist(u"iID"_s, chequeID))
        return {};
    const bool isGiven = cheque.m_iKind == CTblReceipts::paid;
    QList<Entry> entries = handovers(cheque);
    CTblChequeChanges steps(database);
    steps.m_filter = KSql::formatted("iChequeID=%1", chequeID);
    steps.m_sort = "iID";
    for (steps.Open(true, true, true); !steps.IsEOF(); steps.MoveNext()) {
        const bool isVoid = steps.m_iStatus == CTblChequeChanges::voided;
        entries.append({.changeID = steps.m_iID,
                        .date = steps.m_date,
                        .what = ChequeStates::name(static_cast<ChequeState>(steps.m_iToState), isGiven),
                        .detail = detailOf(steps),
                        .docNum = steps.m_iDocNum,
                        .fiscalYear = steps.m_iFiscalYear,
                        .user = CTblUsers::GetName(steps.m_iUserID, database),
                        .isVoid = isVoid,
                        .voiding = isVoid ? voidingText(steps.m_iVoidUserID, steps.m_dateVoid, steps.m_sVoidReason, database) : QString()});
    }
    return entries;
}
