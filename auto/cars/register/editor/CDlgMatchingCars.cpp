// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/editor/CDlgMatchingCars.h"

#include "auto/cars/register/editor/CDlgAddAutomobilInformation.h"
#include "auto/cars/matching/MatchingCars.h"
#include "suite/utility/values/Money.h"

namespace {

// "از A تا B", or the one end that is stated; empty without any.
QString rangeText(const QString &what, const QString &from, const QString &upTo)
{
    QString text;
    if (!from.isEmpty())
        text += QStringLiteral(" از ") + from;
    if (!upTo.isEmpty())
        text += QStringLiteral(" تا ") + upTo;
    return text.isEmpty() ? text : what + text;
}

std::optional<MatchTable::Contents> contents(int demandID)
{
    using namespace MatchTexts;
    const std::optional<MatchingCars> matching = MatchingCars::of(demandID);
    if (!matching)
        return std::nullopt;
    MatchTable::Contents contents;
    contents.subject = QStringLiteral("تقاضای %1، %2: %3")
                           .arg(QString::number(matching->demandCode), name(matching->person).text,
                                CDlgMatchingCars::wishesText(matching->wishes, matching->type, matching->color));
    contents.rows.reserve(static_cast<qsizetype>(matching->cars.size()));
    for (const MatchingCars::Car &car : matching->cars) {
        const int row = static_cast<int>(contents.rows.size()) + 1;
        contents.rows.append({car.id,
                              {number(row), percent(car.match.percent), number(car.code), name(car.type), name(car.model), name(car.carClass), number(car.offer.year), name(car.color), money(car.offer.amount), {car.plate}, name(car.owner)}});
    }
    return contents;
}

}

QString CDlgMatchingCars::wishesText(const DemandWishes &wishes, const QString &type, const QString &color)
{
    const auto year = [](int year) { return year == 0 ? QString() : QString::number(year); };
    const auto money = [](double amount) { return amount == 0 ? QString() : DToMoney(amount); };
    QStringList parts{type, color, rangeText(QStringLiteral("سال تولید"), year(wishes.yearFrom), year(wishes.yearUpTo)),
                      rangeText(QStringLiteral("مبلغ"), money(wishes.amountFrom), money(wishes.amountUpTo))};
    parts.removeAll(QString());
    return parts.isEmpty() ? QStringLiteral("بدون خواسته مشخص") : parts.join(QStringLiteral("، "));
}

MatchTable CDlgMatchingCars::table(int demandID)
{
    const QString title = QStringLiteral("خودروهای مناسب");
    return {
        title,
        QStringLiteral("AutomobilInformations"),
        QStringLiteral("AutomobilInformations\\Matching"),
        QStringLiteral("خودرویی که با این تقاضا جور باشد پیدا نشد."),
        {
            {QStringLiteral("ردیف"), Qt::AlignCenter, 35},
            {QStringLiteral("تناسب"), Qt::AlignCenter, 45},
            {QStringLiteral("کد"), Qt::AlignCenter, 35},
            {QStringLiteral("نوع خودرو"), Qt::AlignRight, 70},
            {QStringLiteral("مدل"), Qt::AlignRight, 80},
            {QStringLiteral("تیپ"), Qt::AlignRight, 60},
            {QStringLiteral("سال تولید"), Qt::AlignCenter, 50},
            {QStringLiteral("رنگ"), Qt::AlignRight, 55},
            {QStringLiteral("مبلغ"), Qt::AlignCenter, 85},
            {QStringLiteral("پلاک"), Qt::AlignCenter, 95, {}, false, true},
            {QStringLiteral("نام مالک"), Qt::AlignRight, 110},
        },
        {title, QStringLiteral("گالری اتومبیل"), title},
        [demandID] { return contents(demandID); },
        [](int key, QWidget *parent) {
            bool changed = false;
            CDlgAddAutomobilInformation::ShowCar(key, changed, parent);
            return changed;
        },
    };
}

void CDlgMatchingCars::Show(int demandID, QWidget *parent)
{
    CDlgMatches::Run(table(demandID), parent);
}
