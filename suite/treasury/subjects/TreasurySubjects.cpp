// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/subjects/TreasurySubjects.h"

#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/changes/SubjectWords.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/treasury/followups/CTblFollowUps.h"
#include "suite/treasury/records/CTblChequeChanges.h"
#include "suite/treasury/records/CTblCheques.h"
#include "suite/treasury/records/CTblReceipts.h"
#include "suite/treasury/records/ChequeStates.h"
#include "suite/treasury/subjects/MoneyStory.h"

using namespace Qt::StringLiterals;

namespace {

using SubjectWords::captions;
using SubjectWords::words;
using Names = QHash<QString, std::function<QString(int)>>;

QString stateName(int state)
{
    return ChequeStates::name(static_cast<ChequeState>(state));
}

QList<RecordSubject::Part> stepsOf(qint32 cheque, int database)
{
    CTblTemp query(database);
    query.Open(false, false, true);
    query.FormatAndExecuteQuery("SELECT iID FROM ChequeChanges WHERE iChequeID=%d", cheque);
    QList<RecordSubject::Part> steps;
    for (; query.HasResultRow(); query.MoveNextResult())
        steps.append({u"ChequeChanges"_s, query.GetLongFieldValue(0)});
    return steps;
}

void enterCheques()
{
    RecordSubjects::enter({.table = u"Cheques"_s,
                           .kind = u"چک"_s,
                           .form = u"Cheques"_s,
                           .make = RecordSubject::maker<CTblCheques>(),
                           .title =
                               [](KMySQL &record) {
                                   const auto &cheque = static_cast<const CTblCheques &>(record);
                                   return u"%1 %2"_s.arg(cheque.m_sNumber, cheque.m_sBank).trimmed();
                               },
                           .caption = {},
                           .word = words(Names{{u"iKind"_s, &CTblReceipts::kindName}, {u"iState"_s, &stateName}}),
                           .derived = {},
                           .parts = &stepsOf,
                           .recordKinds = {RecordKind::Cheque}});
    RecordSubjects::enter({.table = u"ChequeChanges"_s,
                           .kind = u"تغییر وضعیت چک"_s,
                           .form = u"Cheques"_s,
                           .make = RecordSubject::maker<CTblChequeChanges>(),
                           .title = [](KMySQL &record) { return stateName(static_cast<const CTblChequeChanges &>(record).m_iToState); },
                           .caption = captions({{u"iStatus"_s, u"وضعیت"_s}}),
                           .word = words(Names{{u"iFromState"_s, &stateName}, {u"iToState"_s, &stateName}, {u"iStatus"_s, &CTblReceipts::statusName}})});
}

}

void TreasurySubjects::enter()
{
    if (RecordSubjects::of(u"Receipts"_s))
        return;
    MoneyStory::enter();
    RecordSubjects::enter({.table = u"Receipts"_s,
                           .kind = u"دریافت و پرداخت"_s,
                           .form = u"Receipts"_s,
                           .make = RecordSubject::maker<CTblReceipts>(),
                           .title =
                               [](KMySQL &record) {
                                   const auto &receipt = static_cast<const CTblReceipts &>(record);
                                   return u"%1 %2"_s.arg(CTblReceipts::kindName(receipt.m_iKind)).arg(receipt.m_iID);
                               },
                           .caption = {},
                           .word = words(Names{{u"iKind"_s, &CTblReceipts::kindName}, {u"iMethod"_s, &CTblReceipts::methodName}, {u"iStatus"_s, &CTblReceipts::statusName}}),
                           .recordKinds = {RecordKind::Receipt}});
    enterCheques();
    RecordSubjects::enter({.table = u"FollowUps"_s,
                           .kind = u"پیگیری"_s,
                           .form = u"AutomobilPayments"_s,
                           .make = RecordSubject::maker<CTblFollowUps>(),
                           .title = [](KMySQL &record) { return static_cast<const CTblFollowUps &>(record).m_sNote.simplified().left(60); },
                           .caption = captions({{u"iKind"_s, u"نوع"_s}}),
                           .word = words(Names{{u"iKind"_s, &CTblFollowUps::kindName}})});
}
