// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/subjects/CarStory.h"

#include "auto/cars/matching/MatchingCars.h"
#include "auto/cars/matching/MatchingDemands.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/history/HistoryEntry.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/values/Money.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Tone = StoryEvent::Tone;

const QString carTable = u"AutomobilInformations"_s;
const QString demandTable = u"AutomobilDemands"_s;
constexpr int mostMatches = 20;

QString joinedParts(QStringList words)
{
    words.removeAll(QString());
    return words.join(u"، "_s);
}

std::optional<StoryEvent> eventOfColumn(const KChangedValue &value)
{
    if (value.column == "dAmount"_L1)
        return CarStory::priceEvent(value.before.toDouble(), value.after.toDouble());
    if (value.column == "oPicture"_L1)
        return StoryEvent{.kind = StoryEvent::Kind::Picture, .when = {}, .tone = Tone::Neutral, .title = value.after.isValid() ? u"تصویر خودرو گذاشته شد"_s : u"تصویر خودرو برداشته شد"_s, .line = {}};
    if (value.column == "bSold"_L1)
        return StoryEvent{.kind = StoryEvent::Kind::Record, .when = {}, .tone = value.after.toInt() != 0 ? Tone::Good : Tone::Warn, .title = value.after.toInt() != 0 ? u"خودرو فروخته شد"_s : u"فروش خودرو پس گرفته شد"_s, .line = {}};
    return {};
}

QList<StoryEvent> demandsFor(qint32 car, int database)
{
    const auto matches = MatchingDemands::of(car, database);
    QList<StoryEvent> events;
    if (!matches)
        return events;
    for (const MatchingDemands::Demand &demand : matches->demands) {
        if (events.size() >= mostMatches)
            break;
        if (!demand.referenceDate.isValid())
            continue;
        events.append({.kind = StoryEvent::Kind::Demand,
                       .when = demand.referenceDate,
                       .tone = Tone::Info,
                       .title = u"تقاضای %1 با این خودرو می‌خواند"_s.arg(demand.person),
                       .line = joinedParts({u"%1٪"_s.arg(demand.match.percent), demand.type, demand.color, demand.mobile}),
                       .user = {},
                       .table = demandTable,
                       .key = demand.id});
    }
    return events;
}

QHash<int, QDateTime> enteredDates(const QList<int> &cars, int database)
{
    QHash<int, QDateTime> dates;
    CTblTemp rows(database);
    rows.Open(true, false, true);
    rows.ExecuteQuery(KSql::formatted("SELECT iID,COALESCE(dateIntroduction,dateCreate) FROM AutomobilInformations WHERE iID IN (%1)", KSql::list(cars)));
    for (; rows.HasResultRow(); rows.MoveNextResult())
        dates.insert(rows.GetLongFieldValue(0), rows.GetDateFieldValue(1));
    return dates;
}

QList<StoryEvent> carsFor(qint32 demand, int database)
{
    const auto matches = MatchingCars::of(demand, database);
    QList<StoryEvent> events;
    if (!matches || matches->cars.empty())
        return events;
    QList<int> keys;
    for (const MatchingCars::Car &car : matches->cars) {
        if (!car.offer.sold && keys.size() < mostMatches)
            keys.append(car.id);
    }
    if (keys.isEmpty())
        return events;
    const QHash<int, QDateTime> dates = enteredDates(keys, database);
    for (const MatchingCars::Car &car : matches->cars) {
        if (!keys.contains(car.id) || !dates.value(car.id).isValid())
            continue;
        events.append({.kind = StoryEvent::Kind::Demand,
                       .when = dates.value(car.id),
                       .tone = Tone::Info,
                       .title = u"%1 با این تقاضا می‌خواند"_s.arg(u"%1 %2"_s.arg(car.type, car.model).simplified()),
                       .line = joinedParts({u"%1٪"_s.arg(car.match.percent), car.color, DToMoney(car.offer.amount), car.plate.simplified()}),
                       .user = {},
                       .table = carTable,
                       .key = car.id,
                       .amount = car.offer.amount});
    }
    return events;
}

// The rows of one statement, each an event of its key and its day, the first two columns; those without a day happened nobody knows when.
QList<StoryEvent> eventsOf(const KSql &statement, StoryEvent (*tell)(const CTblTemp &row), int database)
{
    QList<StoryEvent> events;
    CTblTemp rows(database);
    rows.Open(true, false, true);
    for (rows.ExecuteQuery(statement); rows.HasResultRow(); rows.MoveNextResult()) {
        if (!rows.GetDateFieldValue(1).isValid())
            continue;
        events.append(tell(rows));
        events.last().key = rows.GetLongFieldValue(0);
        events.last().when = rows.GetDateFieldValue(1);
    }
    return events;
}

// A row of cars(): one that a person brought, or bought.
StoryEvent carOf(const CTblTemp &row)
{
    const QString name = u"%1 %2"_s.arg(row.GetTextFieldValue(2), row.GetTextFieldValue(3)).simplified();
    const bool bought = row.GetLongFieldValue(8) != 0;
    return {.kind = StoryEvent::Kind::Record,
            .when = {},
            .tone = Tone::Good,
            .title = bought ? u"خودروی %1 را خرید"_s.arg(name) : u"خودروی %1 را معرفی کرد"_s.arg(name),
            .line = joinedParts({row.GetLongFieldValue(4) > 0 ? u"مدل %1"_s.arg(row.GetLongFieldValue(4)) : QString(), row.GetTextFieldValue(5).simplified(), DToMoney(row.GetDoubleFieldValue(6))}),
            .user = {},
            .table = carTable,
            .amount = row.GetDoubleFieldValue(6)};
}

// A row of demands().
StoryEvent demandOf(const CTblTemp &row)
{
    const int from = row.GetLongFieldValue(4);
    const int upTo = row.GetLongFieldValue(5);
    const double most = row.GetDoubleFieldValue(6);
    return {.kind = StoryEvent::Kind::Demand,
            .when = {},
            .tone = Tone::Info,
            .title = u"تقاضای %1"_s.arg(row.GetTextFieldValue(3).isEmpty() ? u"خودرو"_s : row.GetTextFieldValue(3)),
            .line = joinedParts({u"کد %1"_s.arg(row.GetLongFieldValue(2)), from > 0 && upTo > 0 ? u"مدل %1 تا %2"_s.arg(from).arg(upTo) : QString(), IsEquals(most, 0) ? QString() : u"تا %1"_s.arg(DToMoney(most))}),
            .user = row.GetTextFieldValue(7),
            .table = demandTable,
            .amount = most};
}

}

StoryEvent CarStory::priceEvent(double before, double after)
{
    StoryEvent event{.kind = StoryEvent::Kind::Price, .when = {}, .tone = Tone::Warn, .title = {}, .line = {}};
    event.amount = after;
    const double difference = after - before;
    if (IsEquals(before, 0)) {
        event.title = u"قیمت گذاشته شد"_s;
        event.line = DToMoney(after);
    } else if (IsEquals(after, 0)) {
        event.title = u"قیمت برداشته شد"_s;
        event.line = u"%1 بود"_s.arg(DToMoney(before));
    } else {
        event.title = difference < 0 ? u"قیمت کم شد"_s : u"قیمت زیاد شد"_s;
        event.line = u"از %1 به %2، %3 %4"_s.arg(DToMoney(before), DToMoney(after), DToMoney(std::abs(difference)), difference < 0 ? u"کمتر"_s : u"بیشتر"_s);
    }
    return event;
}

QList<StoryEvent> CarStory::tell(HistoryEntry &entry)
{
    QList<StoryEvent> events;
    entry.values.removeIf([&](const KChangedValue &value) {
        const std::optional<StoryEvent> event = eventOfColumn(value);
        if (event)
            events.append(*event);
        return event.has_value();
    });
    return events;
}

QList<StoryEvent> CarStory::matches(const StoryScope &scope, int limit, int database)
{
    const QList<StoryEvent> events = scope.table == carTable ? demandsFor(scope.key, database)
        : scope.table == demandTable                         ? carsFor(scope.key, database)
                                                             : QList<StoryEvent>();
    return events.first(std::min<qsizetype>(limit, events.size()));
}

QList<StoryEvent> CarStory::cars(const StoryScope &scope, int limit, int database)
{
    const QList<int> persons = scope.of(RecordKind::Person);
    if (persons.isEmpty())
        return {};
    return eventsOf(KSql::formatted("SELECT a.iID,COALESCE(a.dateIntroduction,a.dateCreate),b.sName,m.sName,a.iYear,a.sNumOfPlates,a.dAmount,a.bSold,0 FROM AutomobilInformations a"
                                    " LEFT JOIN CarBrands b ON b.iID=a.iAutomobilType LEFT JOIN CarModels m ON m.iID=a.iModel WHERE a.iPersonID IN (%1) AND %2"
                                    " UNION ALL SELECT a.iID,COALESCE(a.dateBuy,a.dateCreate),b.sName,m.sName,a.iYear,a.sNumOfPlates,a.dAmount,a.bSold,1 FROM AutomobilInformations a"
                                    " LEFT JOIN CarBrands b ON b.iID=a.iAutomobilType LEFT JOIN CarModels m ON m.iID=a.iModel WHERE a.iPersonBuyerID IN (%1) AND a.bSold<>0 AND %2"
                                    " ORDER BY 2 DESC LIMIT %3",
                                    KSql::list(persons), Placeholders::none(carTable, u"a.iID"_s), limit),
                    &carOf, database);
}

QList<StoryEvent> CarStory::demands(const StoryScope &scope, int limit, int database)
{
    const QList<int> persons = scope.of(RecordKind::Person);
    if (persons.isEmpty())
        return {};
    return eventsOf(KSql::formatted("SELECT d.iID,COALESCE(d.dateReference,d.dateCreate),d.iCode,b.sName,d.iModelFrom,d.iModelUpTo,d.dAmountUpTo,COALESCE(NULLIF(u.sName,''),u.sUser) FROM AutomobilDemands d"
                                    " LEFT JOIN CarBrands b ON b.iID=d.iAutomobilType LEFT JOIN Users u ON u.iID=d.iUserID WHERE d.iPersonID IN (%1) AND %2 ORDER BY d.iID DESC LIMIT %3",
                                    KSql::list(persons), Placeholders::none(demandTable, u"d.iID"_s), limit),
                    &demandOf, database);
}
