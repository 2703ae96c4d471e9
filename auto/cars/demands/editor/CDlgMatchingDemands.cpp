// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/demands/editor/CDlgMatchingDemands.h"

#include "auto/cars/demands/editor/CDlgAddAutomobilDemand.h"
#include "auto/cars/matching/MatchingDemands.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

namespace {

QString carText(const MatchingDemands &matching)
{
    QStringList parts{matching.type, matching.color};
    if (matching.offer.year != 0)
        parts.append(QStringLiteral("سال تولید %1").arg(matching.offer.year));
    if (matching.offer.amount != 0)
        parts.append(QStringLiteral("مبلغ ") + DToMoney(matching.offer.amount));
    parts.removeAll(QString());
    const QString car = QStringLiteral("خودروی %1").arg(matching.carCode);
    return parts.isEmpty() ? car : car + QStringLiteral(": ") + parts.join(QStringLiteral("، "));
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
                              {number(row), percent(demand.match.percent), number(demand.code), name(demand.person), {demand.mobile}, name(demand.type), number(demand.wishes.yearFrom), number(demand.wishes.yearUpTo), name(demand.color), money(demand.wishes.amountFrom), money(demand.wishes.amountUpTo), {shamsiText(demand.referenceDate.date()), demand.referenceDate}, {demand.specialDescription}}});
    }
    return contents;
}

MatchTable tableOf(const std::function<std::optional<MatchingDemands>()> &find)
{
    const QString title = QStringLiteral("متقاضیان");
    return {
        title,
        QStringLiteral("AutomobilDemands"),
        QStringLiteral("AutomobilDemands\\Matching"),
        QStringLiteral("تقاضایی که با این خودرو جور باشد پیدا نشد."),
        {
            {QStringLiteral("ردیف"), Qt::AlignCenter, 35},
            {QStringLiteral("تناسب"), Qt::AlignCenter, 45},
            {QStringLiteral("کد تقاضا"), Qt::AlignCenter, 45},
            {QStringLiteral("نام متقاضی"), Qt::AlignRight, 100},
            {QStringLiteral("موبایل"), Qt::AlignCenter, 70},
            {QStringLiteral("نوع خودرو"), Qt::AlignRight, 60},
            {QStringLiteral("از مدل"), Qt::AlignCenter, 42},
            {QStringLiteral("تا مدل"), Qt::AlignCenter, 42},
            {QStringLiteral("رنگ"), Qt::AlignRight, 60},
            {QStringLiteral("از مبلغ"), Qt::AlignCenter, 78},
            {QStringLiteral("تا مبلغ"), Qt::AlignCenter, 78},
            {QStringLiteral("تاریخ مراجعه"), Qt::AlignCenter, 65, {}, true},
            {QStringLiteral("توضیحات ویژه"), Qt::AlignRight, 100},
        },
        {title, QStringLiteral("گالری اتومبیل"), title},
        [find]() -> std::optional<MatchTable::Contents> {
            const std::optional<MatchingDemands> matching = find();
            return matching ? std::optional(contents(*matching)) : std::nullopt;
        },
        [](int key, QWidget *parent) {
            bool changed = false;
            CDlgAddAutomobilDemand::ShowDemand(key, changed, parent);
            return changed;
        },
    };
}

}

MatchTable CDlgMatchingDemands::table(int carID)
{
    return tableOf([carID] { return MatchingDemands::of(carID); });
}

void CDlgMatchingDemands::Show(const OfferedCar &offer, int carCode, QWidget *parent)
{
    CDlgMatches::Run(tableOf([offer, carCode] { return MatchingDemands::of(offer, carCode); }), parent);
}

void CDlgMatchingDemands::Show(int carID, QWidget *parent)
{
    CDlgMatches::Run(table(carID), parent);
}
