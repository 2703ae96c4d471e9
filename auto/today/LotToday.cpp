// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/today/LotToday.h"

#include "auto/cars/matching/DemandMatch.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int insuranceDaysAhead = 30;
constexpr int mostNewCars = 50;
// A car that stands so much longer than it should asks for more.
constexpr int longTimes = 2;

const QString cars = u"AutomobilInformations"_s;

KSql onTheLot()
{
    return "ai.bSold=0 AND ai.iStatus=0 AND ai.iArchiveUserID=0 AND " + Placeholders::none(cars, u"ai.iID"_s);
}

QString carName(const QStringList &parts)
{
    QStringList said;
    for (const QString &part : parts) {
        if (!part.isEmpty() && !said.contains(part))
            said.append(part);
    }
    return said.isEmpty() ? u"خودرو"_s : said.join(u' ');
}

struct Match
{
    DemandMatch match;
    int carCode = 0;
    TodayLine line;
};

// One of the lot, as standing() reads it.
struct LotCar
{
    qint32 key = 0;
    QString name;
    QDate since;
    double price = 0;
    double spent = 0;
    bool isBought = false;
    QString insurance;
};

QList<LotCar> lot(const TodayFrame &frame)
{
    QList<LotCar> found;
    CTblTemp query(frame.database);
    query.ExecuteQuery("SELECT ai.iID,b.sName,m.sName,i.sName,COALESCE(ai.dateIntroduction,ai.dateCreate),ai.dAmount,"
                       "ai.dPurchasePriceOfOwner,ai.dAutomobilExpenses,ai.sInsuranceStatus FROM AutomobilInformations ai LEFT JOIN CarBrands b ON "
                       "b.iID=ai.iAutomobilType LEFT JOIN CarModels m ON m.iID=ai.iModel LEFT JOIN Items i ON i.iID=ai.iColor WHERE "
                       + onTheLot() + " AND (COALESCE(ai.dateIntroduction,ai.dateCreate)<" + frame.begin(1 - frame.standingDays)
                       + " OR ai.sInsuranceStatus REGEXP '[0-9۰-۹٠-٩]') ORDER BY 5,ai.iID");
    for (; query.HasResultRow(); query.MoveNextResult())
        found.append({.key = query.GetLongFieldValue(0),
                      .name = carName({query.GetTextFieldValue(1), query.GetTextFieldValue(2), query.GetTextFieldValue(3)}),
                      .since = query.GetDateFieldValue(4).date(),
                      .price = query.GetDoubleFieldValue(5),
                      .spent = query.GetDoubleFieldValue(6) + query.GetDoubleFieldValue(7),
                      .isBought = query.GetDoubleFieldValue(6) > 0,
                      .insurance = query.GetTextFieldValue(8)});
    return found;
}

KListRequest onlyThese(const QList<int> &keys, const QString &words)
{
    return {.condition = keys.isEmpty() ? KSql("1=0") : "ai.iID IN (" + KSql::list(keys) + ")", .conditionText = words};
}

TodayContent longStanding(const QList<LotCar> &lot, const TodayFrame &frame)
{
    TodayContent content;
    QList<int> keys;
    for (const LotCar &car : lot) {
        const int days = car.since.isValid() ? static_cast<int>(car.since.daysTo(frame.today)) : 0;
        if (days < frame.standingDays)
            continue;
        keys.append(car.key);
        const bool isLong = days >= longTimes * frame.standingDays;
        if (content.lines.size() < TodayContent::mostLines)
            content.lines.append({.table = cars,
                                  .key = car.key,
                                  .name = car.name,
                                  .line = car.isBought ? u"سود پیش‌بینی"_s : u"مبلغ"_s,
                                  .amount = car.isBought ? car.price - car.spent : car.price,
                                  .chip = u"%1 روز"_s.arg(days),
                                  .tone = isLong ? TodayTone::Overdue : TodayTone::Due});
    }
    content.count = keys.size();
    content.tone = keys.isEmpty() ? TodayTone::Quiet : TodayTone::Due;
    content.listTable = cars;
    content.request = onlyThese(keys, u"بیش از %1 روز مانده"_s.arg(frame.standingDays));
    return content;
}

TodayContent endingInsurances(const QList<LotCar> &lot, const TodayFrame &frame)
{
    TodayContent content;
    QList<std::pair<QDate, const LotCar *>> ending;
    for (const LotCar &car : lot) {
        const QDate day = LotToday::dayIn(car.insurance);
        if (day.isValid() && frame.today.daysTo(day) <= insuranceDaysAhead)
            ending.append({day, &car});
    }
    std::stable_sort(ending.begin(), ending.end(), [](const auto &one, const auto &other) { return one.first < other.first; });
    QList<int> keys;
    for (const auto &[day, car] : std::as_const(ending)) {
        const int days = static_cast<int>(frame.today.daysTo(day));
        keys.append(car->key);
        if (content.lines.size() < TodayContent::mostLines)
            content.lines.append({.table = cars,
                                  .key = car->key,
                                  .name = car->name,
                                  .line = u"تا %1"_s.arg(shamsiText(day)),
                                  .chip = TodayCards::dayText(days),
                                  .tone = TodayCards::dayTone(days)});
    }
    content.count = keys.size();
    content.tone = content.lines.isEmpty() ? TodayTone::Quiet : content.lines.constFirst().tone;
    content.listTable = cars;
    content.request = onlyThese(keys, u"پایان بیمه تا یک ماه"_s);
    return content;
}

}

QDate LotToday::dayIn(const QString &text)
{
    static const QRegularExpression day(u"\\d{4}[/.-]\\d{1,2}[/.-]\\d{1,2}"_s, QRegularExpression::UseUnicodePropertiesOption);
    for (auto found = day.globalMatch(text); found.hasNext();) {
        if (const QDate date = parseShamsi(found.next().capturedView()); date.isValid())
            return date;
    }
    return {};
}

QList<TodayContent> LotToday::standing(const TodayFrame &frame)
{
    const QList<LotCar> found = lot(frame);
    return {longStanding(found, frame), endingInsurances(found, frame)};
}

// The statement pairs a car with the demands of its type; how well they fit is the rule's.
TodayContent LotToday::matches(const TodayFrame &frame)
{
    TodayContent content;
    CTblTemp query(frame.database);
    query.ExecuteQuery(
        "SELECT c.iID,c.iCode,b.sName,m.sName,i.sName,c.iAutomobilType,c.iColor,c.iYear,c.dAmount,ad.iAutomobilType,ad.iColor,ad.iModelFrom,ad.iModelUpTo,"
        "ad.dAmountFrom,ad.dAmountUpTo,p.sName2,ad.dateMaxTimeNeed FROM (SELECT ai.* FROM AutomobilInformations ai WHERE "
        + onTheLot() + " AND ai.dateCreate>=" + frame.begin(-1) + KSql::formatted(" ORDER BY ai.iID DESC LIMIT %1) c ", mostNewCars)
        + "JOIN AutomobilDemands ad ON ad.iArchiveUserID=0 AND ad.iStatus=0 AND ad.iAutomobilType IN (0,c.iAutomobilType) AND "
        + Placeholders::none(u"AutomobilDemands"_s, u"ad.iID"_s)
        + " JOIN Persons p ON p.iID=ad.iPersonID LEFT JOIN CarBrands b ON b.iID=c.iAutomobilType LEFT JOIN CarModels m ON m.iID=c.iModel "
          "LEFT JOIN Items i ON i.iID=c.iColor");
    QList<Match> found;
    for (; query.HasResultRow(); query.MoveNextResult()) {
        const OfferedCar offer{query.GetLongFieldValue(5), query.GetLongFieldValue(6), query.GetLongFieldValue(7), query.GetDoubleFieldValue(8), false};
        const DemandWishes wishes{query.GetLongFieldValue(9), query.GetLongFieldValue(10), query.GetLongFieldValue(11), query.GetLongFieldValue(12),
                                  query.GetDoubleFieldValue(13), query.GetDoubleFieldValue(14)};
        const std::optional<DemandMatch> match = DemandMatch::of(wishes, offer);
        if (!match || match->wishes == 0 || isOver(query.GetDateFieldValue(16), frame.today))
            continue;
        found.append({*match, query.GetLongFieldValue(1), {.table = cars, .key = query.GetLongFieldValue(0), .name = carName({query.GetTextFieldValue(2), query.GetTextFieldValue(3), query.GetTextFieldValue(4)}), .line = query.GetTextFieldValue(15), .amount = offer.amount, .chip = u"%1٪"_s.arg(match->percent), .tone = match->percent >= 75 ? TodayTone::Good : TodayTone::Quiet}});
    }
    std::stable_sort(found.begin(), found.end(), [](const Match &one, const Match &other) { return isBetterMatch(one.match, one.carCode, other.match, other.carCode); });
    QList<int> keys;
    for (const Match &match : std::as_const(found)) {
        if (!keys.contains(match.line.key))
            keys.append(match.line.key);
        if (content.lines.size() < TodayContent::mostLines)
            content.lines.append(match.line);
    }
    content.count = keys.size();
    content.tone = keys.isEmpty() ? TodayTone::Quiet : TodayTone::Good;
    content.listTable = cars;
    content.request = onlyThese(keys, u"متناسب با تقاضا، از دیروز"_s);
    return content;
}
