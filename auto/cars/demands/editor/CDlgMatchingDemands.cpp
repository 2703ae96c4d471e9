// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/demands/editor/CDlgMatchingDemands.h"

#include "auto/cars/demands/editor/CDlgAddAutomobilDemand.h"
#include "auto/cars/matching/MatchingDemands.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

QString carText(const MatchingDemands &matching)
{
    QStringList parts{matching.type, matching.color};
    if (matching.offer.year != 0)
        parts.append(u"سال تولید %1"_s.arg(matching.offer.year));
    if (matching.offer.amount != 0)
        parts.append(u"مبلغ "_s + DToMoney(matching.offer.amount));
    if (matching.offer.sold)
        parts.append(u"فروخته شده"_s);
    parts.removeAll(QString());
    const QString car = u"خودروی %1"_s.arg(matching.carCode);
    return parts.isEmpty() ? car : car + u": "_s + parts.join(u"، "_s);
}

MatchTable::Contents contents(const MatchingDemands &matching)
{
    using namespace MatchTexts;
    MatchTable::Contents contents;
    contents.subject = carText(matching);
    contents.rows.reserve(static_cast<qsizetype>(matching.demands.size()));
    for (const MatchingDemands::Demand &demand : matching.demands) {
        const int row = static_cast<int>(contents.rows.size()) + 1;
        contents.rows.append({demand.id,
                              {number(row), percent(demand.match.percent), number(demand.code), name(demand.person), {demand.mobile}, name(demand.type), number(demand.wishes.yearFrom), number(demand.wishes.yearUpTo), name(demand.color), money(demand.wishes.amountFrom), money(demand.wishes.amountUpTo), {shamsiText(demand.referenceDate.date()), demand.referenceDate}, latestDate(demand.latestDate), sold(matching.offer.sold), {demand.specialDescription}},
                              demand.overdue || matching.offer.sold});
    }
    return contents;
}

// message: as the table has it.
MatchTable tableOf(const std::function<std::optional<MatchingDemands>()> &find, const std::function<MessageAbout(int)> &message = {})
{
    const QString title = u"متقاضیان"_s;
    return {
        title,
        u"AutomobilDemands"_s,
        u"AutomobilDemands\\Matching"_s,
        u"تقاضایی که با این خودرو جور باشد پیدا نشد."_s,
        {
            {u"ردیف"_s, Qt::AlignCenter, 35},
            {u"تناسب"_s, Qt::AlignCenter, 45},
            {u"کد تقاضا"_s, Qt::AlignCenter, 45},
            {u"نام متقاضی"_s, Qt::AlignRight, 100},
            {u"موبایل"_s, Qt::AlignCenter, 70},
            {u"نوع خودرو"_s, Qt::AlignRight, 60},
            {u"از مدل"_s, Qt::AlignCenter, 42},
            {u"تا مدل"_s, Qt::AlignCenter, 42},
            {u"رنگ"_s, Qt::AlignRight, 60},
            {u"از مبلغ"_s, Qt::AlignCenter, 78},
            {u"تا مبلغ"_s, Qt::AlignCenter, 78},
            {u"تاریخ مراجعه"_s, Qt::AlignCenter, 65, {}, true},
            {u"حداکثر زمان نیاز"_s, Qt::AlignCenter, 75, {}, true},
            {u"وضعیت فروش"_s, Qt::AlignCenter, 65},
            {u"توضیحات ویژه"_s, Qt::AlignRight, 80},
        },
        {title, u"گالری اتومبیل"_s, title},
        [find]() -> std::optional<MatchTable::Contents> {
            const std::optional<MatchingDemands> matching = find();
            return matching ? std::optional(contents(*matching)) : std::nullopt;
        },
        [](int key, QWidget *parent) {
            bool changed = false;
            CDlgAddAutomobilDemand::ShowDemand(key, changed, parent);
            return changed;
        },
        message,
    };
}

}

MatchTable CDlgMatchingDemands::table(int carID)
{
    return tableOf([carID] { return MatchingDemands::of(carID); }, [carID](int key) { return MessageAbout{key, carID}; });
}

void CDlgMatchingDemands::Show(const OfferedCar &offer, int carCode, QWidget *parent)
{
    CDlgMatches::Run(tableOf([offer, carCode] { return MatchingDemands::of(offer, carCode); }), parent);
}

void CDlgMatchingDemands::Show(int carID, QWidget *parent)
{
    CDlgMatches::Run(table(carID), parent);
}
