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

// None in a contract's own story, which tells of it by its changes.
QList<int> othersOf(const StoryScope &scope)
{
    return scope.table == contractTable ? QList<int>() : scope.of(contractKind);
}

QString nameOf(int code)
{
    return u"قرارداد %1"_s.arg(code);
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

QList<StoryColumns> ContractStory::contracts(const StoryScope &scope)
{
    const QList<int> contracts = othersOf(scope);
    if (contracts.isEmpty())
        return {};
    const KSql car = scope.of(RecordKind::Person).isEmpty() ? KSql("''") : KSql("c.sAutomobilName");
    return {{.key = "c.iID",
             .when = "IF(DATE(c.dateCreate)=DATE(c.dateContract) OR c.dateContract IS NULL,c.dateCreate,c.dateContract)",
             .numbers = {"c.iCode", "c.iContractType"},
             .amount = "c.dAmount",
             .texts = {car, "COALESCE(f.sName2,c.sName1)", "COALESCE(s.sName2,c.sName2)"},
             .user = "c.iUserID",
             .from = KSql::formatted("AutomobilContracts c LEFT JOIN Persons f ON f.iID=c.iPersonFirstID LEFT JOIN Persons s ON s.iID=c.iPersonSecondID WHERE c.iID IN (%1) ORDER BY c.iID DESC", KSql::list(contracts))}};
}

std::optional<StoryEvent> ContractStory::tellContract(const StoryRow &row)
{
    QStringList words{WordLists::textAt(WordLists::contractTypes(), row.numbers[1]), row.texts[0].simplified(), DToMoney(row.amount), u"%1 و %2"_s.arg(row.texts[1], row.texts[2])};
    words.removeAll(QString());
    return StoryEvent{.kind = StoryEvent::Kind::Contract, .tone = Tone::Good, .title = u"%1 نوشته شد"_s.arg(nameOf(row.numbers[0])), .line = words.join(u"، "_s), .table = contractTable, .key = row.key, .amount = row.amount};
}

QList<StoryColumns> ContractStory::returns(const StoryScope &scope)
{
    const QList<int> contracts = othersOf(scope);
    if (contracts.isEmpty())
        return {};
    return {{.key = "c.iID",
             .when = "n.date",
             .numbers = {"c.iCode"},
             .texts = {"n.sValues"},
             .user = "n.iUserID",
             .from = KSql::formatted("Changes n JOIN AutomobilContracts c ON c.iID=n.iRecordID WHERE n.sTable='AutomobilContracts' AND n.iRecordID IN (%1) AND n.iKind=1 AND n.sValues LIKE '%\"bReturn\"%' ORDER BY n.iID DESC", KSql::list(contracts))}};
}

std::optional<StoryEvent> ContractStory::tellReturn(const StoryRow &row)
{
    const std::optional<bool> isReturned = returnedBy(KChangedValues::fromJson(row.texts[0].toUtf8()));
    if (!isReturned)
        return {};
    StoryEvent event = returnEvent(nameOf(row.numbers[0]), *isReturned);
    event.table = contractTable;
    event.key = row.key;
    return event;
}

QList<StoryColumns> ContractStory::instalments(const StoryScope &scope)
{
    if (scope.of(contractKind).isEmpty())
        return {};
    return {{.key = "i.iAutomobilContractID",
             .when = "i.date",
             .numbers = {"i.iNum", "c.iCode", "i.iStatus"},
             .amount = "i.dAmount",
             .from = KSql::formatted("AutomobilPayments i JOIN AutomobilContracts c ON c.iID=i.iAutomobilContractID WHERE i.iAutomobilContractID IN (%1) AND i.date<=NOW() ORDER BY i.date DESC", KSql::list(scope.of(contractKind)))}};
}

std::optional<StoryEvent> ContractStory::tellInstalment(const StoryRow &row)
{
    const auto [number, contract, paid] = row.numbers;
    return StoryEvent{.kind = StoryEvent::Kind::Money,
                      .tone = paid != 0 ? Tone::Neutral : Tone::Danger,
                      .title = u"سررسید قسط %1 %2"_s.arg(number).arg(nameOf(contract)),
                      .line = u"%1، %2"_s.arg(DToMoney(row.amount), paid != 0 ? u"پرداخت شده"_s : u"پرداخت نشده"_s),
                      .table = contractTable,
                      .key = row.key,
                      .amount = row.amount};
}

QList<StoryEvent> ContractStory::tell(HistoryEntry &entry)
{
    const std::optional<bool> isReturned = returnedBy(entry.values);
    if (!isReturned)
        return {};
    entry.values.removeIf([](const KChangedValue &value) { return value.column == "bReturn"_L1; });
    return {returnEvent(u"قرارداد"_s, *isReturned)};
}
