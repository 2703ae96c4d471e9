// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/subjects/MoneyStory.h"

#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/timeline/StorySources.h"
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

QList<StoryColumns> receipts(const StoryScope &scope)
{
    return {{.key = "r.iID",
             .when = "IF(DATE(r.dateCreate)=DATE(r.date),r.dateCreate,r.date)",
             .numbers = {"r.iKind", "r.iStatus", "r.iMethod"},
             .amount = "r.dAmount",
             .texts = {"r.sFor", "p.sName2"},
             .user = "r.iUserID",
             .from = "Receipts r LEFT JOIN Persons p ON p.iID=r.iPersonID WHERE " + whoseMoney(scope, "r.") + " ORDER BY r.date DESC,r.iID DESC"}};
}

std::optional<StoryEvent> tellReceipt(const StoryRow &row)
{
    const auto [kind, status, method] = row.numbers;
    const bool stands = status == CTblReceipts::valid;
    return StoryEvent{.kind = StoryEvent::Kind::Money,
                      .tone = stands ? Tone::Good : Tone::Danger,
                      .title = withAmount(CTblReceipts::kindName(kind), row.amount),
                      .line = joinedWords({stands ? QString() : CTblReceipts::statusName(status), row.texts[0], CTblReceipts::methodName(method), row.texts[1]}),
                      .table = u"Receipts"_s,
                      .key = row.key,
                      .amount = row.amount};
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
QList<StoryColumns> cheques(const StoryScope &scope)
{
    const KSql whose = whoseMoney(scope, "c.");
    StoryColumns came{.key = "c.iID",
                      .when = "c.dateCreate",
                      .until = "c.dateDue",
                      .numbers = {"c.iKind", "-1"},
                      .amount = "c.dAmount",
                      .texts = {"c.sNumber", "c.sBank"},
                      .user = "c.iUserID",
                      .from = "Cheques c WHERE " + whose + " AND c.dateCreate IS NOT NULL ORDER BY c.dateCreate DESC"};
    StoryColumns step = came;
    step.when = "s.date";
    step.numbers = {"c.iKind", "s.iToState"};
    step.texts.append("s.sDesc");
    step.user = "s.iUserID";
    step.from = "Cheques c JOIN ChequeChanges s ON s.iChequeID=c.iID AND s.iStatus=0 WHERE " + whose + " ORDER BY s.date DESC";
    return {came, step};
}

std::optional<StoryEvent> tellCheque(const StoryRow &row)
{
    const int to = row.numbers[1];
    const bool given = row.numbers[0] == CTblReceipts::paid;
    const QString &number = row.texts[0];
    const QString came = given ? u"چک %1 داده شد"_s.arg(number) : u"چک %1 گرفته شد"_s.arg(number);
    return StoryEvent{.kind = StoryEvent::Kind::Money,
                      .tone = to < 0 ? Tone::Info : toneOf(ChequeState(to)),
                      .title = to < 0 ? came : u"چک %1: %2"_s.arg(number, ChequeStates::name(ChequeState(to), given)),
                      .line = joinedWords({DToMoney(row.amount), row.texts[1], u"سررسید %1"_s.arg(shamsiText(row.until.date())), row.texts[2]}),
                      .table = u"Cheques"_s,
                      .key = row.key,
                      .amount = row.amount};
}

QList<StoryColumns> notes(const StoryScope &scope)
{
    return {{.key = "f.iID", .when = "f.date", .until = "f.datePromised", .numbers = {"f.iKind"}, .texts = {"f.sNote"}, .user = "f.iUserID", .from = "FollowUps f WHERE " + scope.named("f.") + " ORDER BY f.iID DESC"}};
}

std::optional<StoryEvent> tellNote(const StoryRow &row)
{
    const int kind = row.numbers[0];
    const QDate next = row.until.date();
    const QString nextWords = kind == CTblFollowUps::due ? u"وعده پرداخت %1"_s : u"پیگیری بعدی %1"_s;
    return StoryEvent{.kind = StoryEvent::Kind::Note,
                      .tone = next.isValid() ? Tone::Warn : Tone::Info,
                      .title = u"%1: %2"_s.arg(CTblFollowUps::kindName(kind), row.texts[0].simplified()),
                      .line = next.isValid() ? nextWords.arg(shamsiText(next)) : QString(),
                      .table = kind == CTblFollowUps::due ? QString() : u"FollowUps"_s,
                      .key = row.key};
}

}

void MoneyStory::enter()
{
    StorySources::enter(StorySource{.id = u"receipts"_s, .form = u"Receipts"_s, .columns = &receipts, .tell = &tellReceipt});
    StorySources::enter(StorySource{.id = u"cheques"_s, .form = u"Cheques"_s, .columns = &cheques, .tell = &tellCheque});
    StorySources::enter(StorySource{.id = u"notes"_s, .form = {}, .columns = &notes, .tell = &tellNote});
}
