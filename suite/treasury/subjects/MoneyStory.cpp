// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/subjects/MoneyStory.h"

#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/timeline/StorySources.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/treasury/followups/CTblFollowUps.h"
#include "suite/treasury/records/CTblReceipts.h"
#include "suite/treasury/records/ChequeStates.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

using Tone = StoryEvent::Tone;

// What a person paid and got, whatever it was for; of other records what names them.
KSql whoseMoney(const StoryScope &scope, const KSql &prefix)
{
    const QList<int> persons = scope.of(RecordKind::Person);
    return persons.isEmpty() ? scope.named(prefix) : KSql::formatted("%1iPersonID IN (%2)", prefix, KSql::list(persons));
}

QString withAmount(const QString &what, double amount)
{
    return u"%1 %2"_s.arg(what, DToMoney(amount));
}

// What follows behind what, with a comma between two that say something.
QString joinedWords(const QStringList &words)
{
    QStringList said = words;
    said.removeAll(QString());
    return said.join(u"، "_s);
}

StoryEvent receiptEvent(const CTblTemp &row)
{
    const int status = row.GetLongFieldValue(4);
    const int kind = row.GetLongFieldValue(2);
    const bool stands = status == CTblReceipts::valid;
    return {.kind = StoryEvent::Kind::Money,
            .when = row.GetDateFieldValue(1),
            .tone = stands ? Tone::Good : Tone::Danger,
            .title = withAmount(CTblReceipts::kindName(kind), row.GetDoubleFieldValue(3)),
            .line = joinedWords({stands ? QString() : CTblReceipts::statusName(status), row.GetTextFieldValue(6), CTblReceipts::methodName(row.GetLongFieldValue(5)), row.GetTextFieldValue(7)}),
            .user = row.GetTextFieldValue(8),
            .table = u"Receipts"_s,
            .key = row.GetLongFieldValue(0),
            .amount = row.GetDoubleFieldValue(3)};
}

QList<StoryEvent> readReceipts(const StoryScope &scope, int limit, int database)
{
    CTblTemp rows(database);
    rows.Open(true, false, true);
    rows.ExecuteQuery(KSql::formatted("SELECT r.iID,IF(DATE(r.dateCreate)=DATE(r.date),r.dateCreate,r.date),r.iKind,r.dAmount,r.iStatus,r.iMethod,r.sFor,p.sName2"
                                      ",COALESCE(NULLIF(u.sName,''),u.sUser) FROM Receipts r LEFT JOIN Persons p ON p.iID=r.iPersonID LEFT JOIN Users u ON u.iID=r.iUserID"
                                      " WHERE %1 ORDER BY r.date DESC,r.iID DESC LIMIT %2",
                                      whoseMoney(scope, "r."), limit));
    QList<StoryEvent> events;
    for (; rows.HasResultRow(); rows.MoveNextResult())
        events.append(receiptEvent(rows));
    return events;
}

Tone toneOf(ChequeState state)
{
    switch (state) {
    case ChequeState::Cleared:
        return Tone::Good;
    case ChequeState::Bounced:
        return Tone::Danger;
    case ChequeState::Void:
    case ChequeState::Returned:
        return Tone::Neutral;
    default:
        return Tone::Info;
    }
}

// A cheque as it came, and each step of its way.
QList<StoryEvent> readCheques(const StoryScope &scope, int limit, int database)
{
    const KSql whose = whoseMoney(scope, "c.");
    CTblTemp rows(database);
    rows.Open(true, false, true);
    rows.ExecuteQuery(KSql::formatted("SELECT c.iID,c.dateCreate,c.iKind,-1,c.dAmount,c.sNumber,c.sBank,c.dateDue,'',COALESCE(NULLIF(u.sName,''),u.sUser)"
                                      " FROM Cheques c LEFT JOIN Users u ON u.iID=c.iUserID WHERE %1 AND c.dateCreate IS NOT NULL"
                                      " UNION ALL SELECT c.iID,s.date,c.iKind,s.iToState,c.dAmount,c.sNumber,c.sBank,c.dateDue,s.sDesc,COALESCE(NULLIF(v.sName,''),v.sUser)"
                                      " FROM Cheques c JOIN ChequeChanges s ON s.iChequeID=c.iID AND s.iStatus=0 LEFT JOIN Users v ON v.iID=s.iUserID WHERE %1"
                                      " ORDER BY 2 DESC LIMIT %2",
                                      whose, limit));
    QList<StoryEvent> events;
    for (; rows.HasResultRow(); rows.MoveNextResult()) {
        const int to = rows.GetLongFieldValue(3);
        const bool given = rows.GetLongFieldValue(2) == CTblReceipts::paid;
        const QString number = rows.GetTextFieldValue(5);
        const QString came = given ? u"چک %1 داده شد"_s.arg(number) : u"چک %1 گرفته شد"_s.arg(number);
        events.append({.kind = StoryEvent::Kind::Money,
                       .when = rows.GetDateFieldValue(1),
                       .tone = to < 0 ? Tone::Info : toneOf(ChequeState(to)),
                       .title = to < 0 ? came : u"چک %1: %2"_s.arg(number, ChequeStates::name(ChequeState(to), given)),
                       .line = joinedWords({DToMoney(rows.GetDoubleFieldValue(4)), rows.GetTextFieldValue(6), u"سررسید %1"_s.arg(shamsiText(rows.GetDateFieldValue(7).date())), rows.GetTextFieldValue(8)}),
                       .user = rows.GetTextFieldValue(9),
                       .table = u"Cheques"_s,
                       .key = rows.GetLongFieldValue(0),
                       .amount = rows.GetDoubleFieldValue(4)});
    }
    return events;
}

QList<StoryEvent> readNotes(const StoryScope &scope, int limit, int database)
{
    CTblTemp rows(database);
    rows.Open(true, false, true);
    rows.ExecuteQuery(KSql::formatted("SELECT f.iID,f.date,f.iKind,f.sNote,f.datePromised,COALESCE(NULLIF(u.sName,''),u.sUser) FROM FollowUps f LEFT JOIN Users u ON u.iID=f.iUserID"
                                      " WHERE %1 ORDER BY f.iID DESC LIMIT %2",
                                      scope.named("f."), limit));
    QList<StoryEvent> events;
    for (; rows.HasResultRow(); rows.MoveNextResult()) {
        const int kind = rows.GetLongFieldValue(2);
        const QDate next = rows.GetDateFieldValue(4).date();
        const QString nextWords = kind == CTblFollowUps::due ? u"وعده پرداخت %1"_s : u"پیگیری بعدی %1"_s;
        events.append({.kind = StoryEvent::Kind::Note,
                       .when = rows.GetDateFieldValue(1),
                       .tone = next.isValid() ? Tone::Warn : Tone::Info,
                       .title = u"%1: %2"_s.arg(CTblFollowUps::kindName(kind), rows.GetTextFieldValue(3).simplified()),
                       .line = next.isValid() ? nextWords.arg(shamsiText(next)) : QString(),
                       .user = rows.GetTextFieldValue(5),
                       .table = kind == CTblFollowUps::due ? QString() : u"FollowUps"_s,
                       .key = rows.GetLongFieldValue(0)});
    }
    return events;
}

}

void MoneyStory::enter()
{
    StorySources::enter(StorySource{u"receipts"_s, u"Receipts"_s, &readReceipts});
    StorySources::enter(StorySource{u"cheques"_s, u"Cheques"_s, &readCheques});
    StorySources::enter(StorySource{u"notes"_s, {}, &readNotes});
}
