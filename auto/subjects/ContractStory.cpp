// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/subjects/ContractStory.h"

#include "auto/db/CTblAutomobilContracts.h"
#include "auto/words/WordLists.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/history/HistoryEntry.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KChangedValues.h"
#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

namespace {

using Tone = StoryEvent::Tone;

const QString contractTable = u"AutomobilContracts"_s;
constexpr int contractKind = CTblAutomobilContracts::recordKind;

void addContracts(StoryScope &scope, const KSql &statement, int database)
{
    CTblTemp rows(database);
    rows.Open(true, false, true);
    for (rows.ExecuteQuery(statement); rows.HasResultRow(); rows.MoveNextResult())
        scope.records[contractKind].append(rows.GetLongFieldValue(0));
}

bool isOwnStory(const StoryScope &scope)
{
    return scope.table == contractTable;
}

// Whether the note says that it was given back (true), or that this was taken back (false); nothing where it says neither.
std::optional<bool> returnedBy(const QList<KChangedValue> &values)
{
    for (const KChangedValue &value : values) {
        if (value.column == "bReturn"_L1)
            return value.after.toInt() != 0;
    }
    return {};
}

StoryEvent returnEvent(const QString &contract, bool isReturned)
{
    return {.kind = StoryEvent::Kind::Contract,
            .when = {},
            .tone = isReturned ? Tone::Danger : Tone::Good,
            .title = isReturned ? u"%1 برگشت خورد"_s.arg(contract) : u"برگشت %1 پس گرفته شد"_s.arg(contract),
            .line = {}};
}

QList<StoryEvent> writtenContracts(const StoryScope &scope, int limit, int database, QHash<int, QString> &names)
{
    CTblTemp rows(database);
    rows.Open(true, false, true);
    rows.ExecuteQuery(KSql::formatted("SELECT c.iID,c.iCode,IF(DATE(c.dateCreate)=DATE(c.dateContract) OR c.dateContract IS NULL,c.dateCreate,c.dateContract),c.dAmount,c.iContractType,COALESCE(f.sName2,c.sName1)"
                                      ",COALESCE(s.sName2,c.sName2),COALESCE(NULLIF(u.sName,''),u.sUser),c.sAutomobilName FROM AutomobilContracts c"
                                      " LEFT JOIN Persons f ON f.iID=c.iPersonFirstID LEFT JOIN Persons s ON s.iID=c.iPersonSecondID LEFT JOIN Users u ON u.iID=c.iUserID"
                                      " WHERE c.iID IN (%1) ORDER BY c.iID DESC LIMIT %2",
                                      KSql::list(scope.of(contractKind)), limit));
    QList<StoryEvent> events;
    for (; rows.HasResultRow(); rows.MoveNextResult()) {
        const QString name = u"قرارداد %1"_s.arg(rows.GetLongFieldValue(1));
        names.insert(rows.GetLongFieldValue(0), name);
        QStringList words{WordLists::textAt(WordLists::contractTypes(), rows.GetLongFieldValue(4)), scope.of(RecordKind::Person).isEmpty() ? QString() : rows.GetTextFieldValue(8).simplified(), DToMoney(rows.GetDoubleFieldValue(3)),
                          u"%1 و %2"_s.arg(rows.GetTextFieldValue(5), rows.GetTextFieldValue(6))};
        words.removeAll(QString());
        events.append({.kind = StoryEvent::Kind::Contract,
                       .when = rows.GetDateFieldValue(2),
                       .tone = Tone::Good,
                       .title = u"%1 نوشته شد"_s.arg(name),
                       .line = words.join(u"، "_s),
                       .user = rows.GetTextFieldValue(7),
                       .table = contractTable,
                       .key = rows.GetLongFieldValue(0),
                       .amount = rows.GetDoubleFieldValue(3)});
    }
    return events;
}

}

void ContractStory::addOfCar(StoryScope &scope, int limit, int database)
{
    addContracts(scope, KSql::formatted("SELECT iContractID FROM CarContracts WHERE iCarID=%1 ORDER BY iContractID DESC LIMIT %2", scope.key, limit), database);
}

void ContractStory::addOfPerson(StoryScope &scope, int limit, int database)
{
    const KSql saved = Placeholders::none(contractTable);
    addContracts(scope, KSql::formatted("SELECT iID FROM AutomobilContracts WHERE iPersonFirstID=%1 AND %2 UNION SELECT iID FROM AutomobilContracts WHERE iPersonSecondID=%1 AND %2 ORDER BY iID DESC LIMIT %3", scope.key, saved, limit), database);
}

QList<StoryEvent> ContractStory::contracts(const StoryScope &scope, int limit, int database)
{
    if (isOwnStory(scope) || scope.of(contractKind).isEmpty())
        return {};
    QHash<int, QString> names;
    QList<StoryEvent> events = writtenContracts(scope, limit, database, names);
    CTblTemp notes(database);
    notes.Open(true, false, true);
    notes.ExecuteQuery(KSql::formatted("SELECT n.iRecordID,n.date,n.sValues,COALESCE(NULLIF(u.sName,''),u.sUser) FROM Changes n LEFT JOIN Users u ON u.iID=n.iUserID"
                                       " WHERE n.sTable='AutomobilContracts' AND n.iRecordID IN (%1) AND n.iKind=1 AND n.sValues LIKE '%\"bReturn\"%' ORDER BY n.iID DESC LIMIT %2",
                                       KSql::list(scope.of(contractKind)), limit));
    for (; notes.HasResultRow(); notes.MoveNextResult()) {
        const std::optional<bool> isReturned = returnedBy(KChangedValues::fromJson(notes.GetTextFieldValue(2).toUtf8()));
        const int key = notes.GetLongFieldValue(0);
        if (!isReturned || !names.contains(key))
            continue;
        StoryEvent event = returnEvent(names.value(key), *isReturned);
        event.when = notes.GetDateFieldValue(1);
        event.user = notes.GetTextFieldValue(3);
        event.table = contractTable;
        event.key = key;
        events.append(event);
    }
    return events;
}

QList<StoryEvent> ContractStory::instalments(const StoryScope &scope, int limit, int database)
{
    if (scope.of(contractKind).isEmpty())
        return {};
    CTblTemp rows(database);
    rows.Open(true, false, true);
    rows.ExecuteQuery(KSql::formatted("SELECT i.iAutomobilContractID,i.iNum,i.date,i.dAmount,i.iStatus,c.iCode FROM AutomobilPayments i JOIN AutomobilContracts c ON c.iID=i.iAutomobilContractID"
                                      " WHERE i.iAutomobilContractID IN (%1) AND i.date<=NOW() ORDER BY i.date DESC LIMIT %2",
                                      KSql::list(scope.of(contractKind)), limit));
    QList<StoryEvent> events;
    for (; rows.HasResultRow(); rows.MoveNextResult()) {
        const bool isPaid = rows.GetLongFieldValue(4) != 0;
        events.append({.kind = StoryEvent::Kind::Money,
                       .when = rows.GetDateFieldValue(2),
                       .tone = isPaid ? Tone::Neutral : Tone::Danger,
                       .title = u"سررسید قسط %1 قرارداد %2"_s.arg(rows.GetLongFieldValue(1)).arg(rows.GetLongFieldValue(5)),
                       .line = u"%1، %2"_s.arg(DToMoney(rows.GetDoubleFieldValue(3)), isPaid ? u"پرداخت شده"_s : u"پرداخت نشده"_s),
                       .user = {},
                       .table = contractTable,
                       .key = rows.GetLongFieldValue(0),
                       .amount = rows.GetDoubleFieldValue(3)});
    }
    return events;
}

QList<StoryEvent> ContractStory::tell(HistoryEntry &entry)
{
    const std::optional<bool> isReturned = returnedBy(entry.values);
    if (!isReturned)
        return {};
    entry.values.removeIf([](const KChangedValue &value) { return value.column == "bReturn"_L1; });
    return {returnEvent(u"قرارداد"_s, *isReturned)};
}
