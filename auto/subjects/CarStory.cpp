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

#include <cmath>

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

QList<StoryEvent> CarStory::matchingDemands(const StoryScope &scope, int limit, int database)
{
    return scope.table == carTable ? demandsFor(scope.key, database).mid(0, limit) : QList<StoryEvent>();
}

QList<StoryEvent> CarStory::matchingCars(const StoryScope &scope, int limit, int database)
{
    return scope.table == demandTable ? carsFor(scope.key, database).mid(0, limit) : QList<StoryEvent>();
}

QList<StoryColumns> CarStory::cars(const StoryScope &scope)
{
    const QList<int> persons = scope.of(RecordKind::Person);
    if (persons.isEmpty())
        return {};
    const KSql named = KSql::formatted(" AND %1 ORDER BY COALESCE(a.dateIntroduction,a.dateCreate) DESC", Placeholders::none(carTable, u"a.iID"_s));
    const KSql table = "AutomobilInformations a LEFT JOIN CarBrands b ON b.iID=a.iAutomobilType LEFT JOIN CarModels m ON m.iID=a.iModel WHERE ";
    StoryColumns brought{.key = "a.iID", .when = "COALESCE(a.dateIntroduction,a.dateCreate)", .numbers = {"a.iYear", "0"}, .amount = "a.dAmount", .texts = {"b.sName", "m.sName", "a.sNumOfPlates"}, .from = table + KSql::formatted("a.iPersonID IN (%1)", KSql::list(persons)) + named};
    StoryColumns bought = brought;
    bought.when = "COALESCE(a.dateBuy,a.dateCreate)";
    bought.numbers = {"a.iYear", "1"};
    bought.from = table + KSql::formatted("a.iPersonBuyerID IN (%1) AND a.bSold<>0", KSql::list(persons)) + named;
    return {brought, bought};
}

std::optional<StoryEvent> CarStory::tellCar(const StoryRow &row)
{
    // What has no day happened nobody knows when.
    if (!row.when.isValid())
        return {};
    const QString name = u"%1 %2"_s.arg(row.texts[0], row.texts[1]).simplified();
    const auto year = row.numbers[0];
    return StoryEvent{.kind = StoryEvent::Kind::Record,
                      .tone = Tone::Good,
                      .title = row.numbers[1] != 0 ? u"خودروی %1 را خرید"_s.arg(name) : u"خودروی %1 را معرفی کرد"_s.arg(name),
                      .line = joinedParts({year > 0 ? u"مدل %1"_s.arg(year) : QString(), row.texts[2].simplified(), DToMoney(row.amount)}),
                      .table = carTable,
                      .key = row.key,
                      .amount = row.amount};
}

QList<StoryColumns> CarStory::demands(const StoryScope &scope)
{
    const QList<int> persons = scope.of(RecordKind::Person);
    if (persons.isEmpty())
        return {};
    return {{.key = "d.iID",
             .when = "COALESCE(d.dateReference,d.dateCreate)",
             .numbers = {"d.iCode", "d.iModelFrom", "d.iModelUpTo"},
             .amount = "d.dAmountUpTo",
             .texts = {"b.sName"},
             .user = "d.iUserID",
             .from = KSql::formatted("AutomobilDemands d LEFT JOIN CarBrands b ON b.iID=d.iAutomobilType WHERE d.iPersonID IN (%1) AND %2 ORDER BY d.iID DESC", KSql::list(persons), Placeholders::none(demandTable, u"d.iID"_s))}};
}

std::optional<StoryEvent> CarStory::tellDemand(const StoryRow &row)
{
    if (!row.when.isValid())
        return {};
    const auto [code, from, upTo] = row.numbers;
    const QString years = from > 0 && upTo > 0 ? u"مدل %1 تا %2"_s.arg(from).arg(upTo) : QString();
    return StoryEvent{.kind = StoryEvent::Kind::Demand,
                      .tone = Tone::Info,
                      .title = u"تقاضای %1"_s.arg(row.texts[0].isEmpty() ? u"خودرو"_s : row.texts[0]),
                      .line = joinedParts({u"کد %1"_s.arg(code), years, IsEquals(row.amount, 0) ? QString() : u"تا %1"_s.arg(DToMoney(row.amount))}),
                      .table = demandTable,
                      .key = row.key,
                      .amount = row.amount};
}
