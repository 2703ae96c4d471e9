// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/charts/ChartFigures.h"

#include "suite/utility/values/ShamsiDate.h"

#include <QMap>

#include <algorithm>
#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

using ChartFigures::Bar;
using ChartFigures::Earning;
using ChartFigures::Sale;

const QString unknownName = u"نامشخص"_s;

struct Course
{
    int count = 0;
    double sum = 0;
};

template <class Item>
using Value = std::function<std::optional<double>(const Item &)>;

template <class Key, class Item>
QMap<Key, Course> summed(const QList<Item> &items, const std::function<Key(const Item &)> &keyOf, const Value<Item> &valueOf)
{
    QMap<Key, Course> courses;
    for (const Item &item : items) {
        const std::optional<double> value = valueOf(item);
        if (!value)
            continue;
        Course &course = courses[keyOf(item)];
        ++course.count;
        course.sum += *value;
    }
    return courses;
}

double valueOf(const Course &course, bool average)
{
    return average ? course.sum / course.count : course.sum;
}

template <class Item>
QList<Bar> byName(const QList<Item> &items, const std::function<QString(const Item &)> &nameOf, const Value<Item> &value, bool average)
{
    QList<Bar> bars;
    const QMap<QString, Course> courses = summed<QString, Item>(items, nameOf, value);
    for (auto course = courses.cbegin(); course != courses.cend(); ++course)
        bars.append({course.key().isEmpty() ? unknownName : course.key(), course->count, valueOf(*course, average)});
    std::ranges::stable_sort(bars, [](const Bar &one, const Bar &other) { return one.first > other.first; });
    return bars;
}

template <class Item>
QList<Bar> byMonth(const QList<Item> &items, const std::function<QDate(const Item &)> &dateOf, const Value<Item> &value, bool average)
{
    const auto monthOf = [&](const Item &item) {
        const ShamsiDate day = GetShamsi(dateOf(item));
        return day.year * 12 + day.month - 1;
    };
    QList<Bar> bars;
    const QMap<int, Course> courses = summed<int, Item>(items, monthOf, value);
    for (auto course = courses.cbegin(); course != courses.cend(); ++course)
        bars.append({u"%1 %2"_s.arg(shamsiMonthName(course.key() % 12 + 1)).arg(course.key() / 12), course->count, valueOf(*course, average)});
    return bars;
}

std::optional<double> marginOf(const Sale &sale)
{
    return profitAndLoss(sale.amounts);
}

std::optional<double> standingOf(const Sale &sale)
{
    return sale.standing < 0 ? std::nullopt : std::optional<double>(sale.standing);
}

QString brandOf(const Sale &sale)
{
    return sale.brand;
}

QDate soldOn(const Sale &sale)
{
    return sale.sold;
}

std::optional<double> commissionOf(const Earning &earning)
{
    return earning.commission;
}

}

QList<Bar> ChartFigures::marginByBrand(const QList<Sale> &sales)
{
    return byName<Sale>(sales, brandOf, marginOf, false);
}

QList<Bar> ChartFigures::marginByMonth(const QList<Sale> &sales)
{
    return byMonth<Sale>(sales, soldOn, marginOf, false);
}

QList<Bar> ChartFigures::standingByBrand(const QList<Sale> &sales)
{
    return byName<Sale>(sales, brandOf, standingOf, true);
}

QList<Bar> ChartFigures::standingByMonth(const QList<Sale> &sales)
{
    return byMonth<Sale>(sales, soldOn, standingOf, true);
}

QList<Bar> ChartFigures::commissionByClerk(const QList<Earning> &earnings)
{
    return byName<Earning>(
        earnings, [](const Earning &earning) { return earning.clerk; }, commissionOf, false);
}

QList<Bar> ChartFigures::commissionByMonth(const QList<Earning> &earnings)
{
    return byMonth<Earning>(
        earnings, [](const Earning &earning) { return earning.written; }, commissionOf, false);
}

// Whoever takes any brand asks for none in particular, and stands last.
QList<Bar> ChartFigures::demandAndStock(const QList<Wanted> &wanted)
{
    QList<Bar> bars;
    QList<Bar> any;
    for (const Wanted &one : wanted) {
        if (one.demands > 0 || one.cars > 0)
            (one.brand.isEmpty() ? any : bars).append({one.brand.isEmpty() ? u"هر برندی"_s : one.brand, one.demands, double(one.demands), double(one.cars)});
    }
    std::ranges::stable_sort(bars, [](const Bar &one, const Bar &other) {
        return std::pair(one.first - one.second, one.first) > std::pair(other.first - other.second, other.first);
    });
    return bars + any;
}
