// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/editor/CDlgMatchingCars.h"

#include "auto/cars/register/editor/CDlgAddAutomobilInformation.h"
#include "auto/cars/matching/MatchingCars.h"
#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

namespace {

// "از A تا B", or the one end that is stated; empty without any.
QString rangeText(const QString &what, const QString &from, const QString &upTo)
{
    QString text;
    if (!from.isEmpty())
        text += u" از "_s + from;
    if (!upTo.isEmpty())
        text += u" تا "_s + upTo;
    return text.isEmpty() ? text : what + text;
}

std::optional<MatchTable::Contents> contents(int demandID)
{
    using namespace MatchTexts;
    const std::optional<MatchingCars> matching = MatchingCars::of(demandID);
    if (!matching)
        return std::nullopt;
    MatchTable::Contents contents;
    contents.subject = u"تقاضای %1، %2: %3"_s
                           .arg(QString::number(matching->demandCode), name(matching->person).text,
                                CDlgMatchingCars::wishesText(matching->wishes, matching->type, matching->color));
    if (matching->overdue)
        contents.subject += u"، مهلت گذشته"_s;
    contents.rows.reserve(static_cast<qsizetype>(matching->cars.size()));
    for (const MatchingCars::Car &car : matching->cars) {
        const int row = static_cast<int>(contents.rows.size()) + 1;
        contents.rows.append({car.id,
                              {number(row), percent(car.match.percent), number(car.code), name(car.type), name(car.model), name(car.carClass), number(car.offer.year), name(car.color), money(car.offer.amount), {car.plate}, name(car.owner), sold(car.offer.sold), latestDate(matching->latestDate)},
                              car.offer.sold || matching->overdue});
    }
    return contents;
}

}

QString CDlgMatchingCars::wishesText(const DemandWishes &wishes, const QString &type, const QString &color)
{
    const auto year = [](int year) { return year == 0 ? QString() : QString::number(year); };
    const auto money = [](double amount) { return amount == 0 ? QString() : DToMoney(amount); };
    QStringList parts{type, color, rangeText(u"سال تولید"_s, year(wishes.yearFrom), year(wishes.yearUpTo)),
                      rangeText(u"مبلغ"_s, money(wishes.amountFrom), money(wishes.amountUpTo))};
    parts.removeAll(QString());
    return parts.isEmpty() ? u"بدون خواسته مشخص"_s : parts.join(u"، "_s);
}

MatchTable CDlgMatchingCars::table(int demandID)
{
    const QString title = u"خودروهای مناسب"_s;
    return {
        title,
        u"AutomobilInformations"_s,
        u"AutomobilInformations\\Matching"_s,
        u"خودرویی که با این تقاضا جور باشد پیدا نشد."_s,
        {
            {u"ردیف"_s, Qt::AlignCenter, 35},
            {u"تناسب"_s, Qt::AlignCenter, 45},
            {u"کد"_s, Qt::AlignCenter, 35},
            {u"نوع خودرو"_s, Qt::AlignRight, 70},
            {u"مدل"_s, Qt::AlignRight, 80},
            {u"تیپ"_s, Qt::AlignRight, 60},
            {u"سال تولید"_s, Qt::AlignCenter, 50},
            {u"رنگ"_s, Qt::AlignRight, 55},
            {u"مبلغ"_s, Qt::AlignCenter, 85},
            {u"پلاک"_s, Qt::AlignCenter, 95, {}, false, true},
            {u"نام مالک"_s, Qt::AlignRight, 110},
            {u"وضعیت فروش"_s, Qt::AlignCenter, 65},
            {u"حداکثر زمان نیاز"_s, Qt::AlignCenter, 65, {}, true},
        },
        {title, u"گالری اتومبیل"_s, title},
        [demandID] { return contents(demandID); },
        [](int key, QWidget *parent) {
            bool changed = false;
            CDlgAddAutomobilInformation::ShowCar(key, changed, parent);
            return changed;
        },
        [demandID](int key) { return MessageAbout{demandID, key}; },
    };
}

void CDlgMatchingCars::Show(int demandID, QWidget *parent)
{
    CDlgMatches::Run(table(demandID), parent);
}
