// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/matching/DemandMatch.h"

#include <limits>
#include <tuple>
#include <utility>

namespace {

enum Weight {
    ColorWeight = 10,
    YearWeight = 20,
    PriceWeight = 30,
    TypeWeight = 40
};

constexpr int farthestYears = 2;
constexpr double farthestShare = 0.1;
constexpr double roundingFault = 1e-9; // added so that cutting a whole percent does not lose one to rounding
constexpr int firstOrdinaryYear = 1700;
constexpr int shamsiBehindOrdinary = 621;

struct Range
{
    double from = -std::numeric_limits<double>::infinity();
    double upTo = std::numeric_limits<double>::infinity();
};

// None when neither end is stated.
std::optional<Range> statedRange(double from, double upTo)
{
    if (from == 0 && upTo == 0)
        return std::nullopt;
    Range range;
    if (from != 0)
        range.from = from;
    if (upTo != 0)
        range.upTo = upTo;
    if (range.from > range.upTo)
        std::swap(range.from, range.upTo);
    return range;
}

int shamsiYear(int year)
{
    return year >= firstOrdinaryYear ? year - shamsiBehindOrdinary : year;
}

// None: too far outside.
std::optional<double> yearScore(const Range &range, int year)
{
    const double outside = year < range.from ? range.from - year : year > range.upTo ? year - range.upTo
                                                                                     : 0;
    if (outside > farthestYears)
        return std::nullopt;
    return 1 - outside / (farthestYears + 1);
}

std::optional<double> priceScore(const Range &range, double amount)
{
    const double outside = amount < range.from ? (range.from - amount) / range.from
        : amount > range.upTo                  ? (amount - range.upTo) / range.upTo
                                               : 0;
    if (outside > farthestShare)
        return std::nullopt;
    return 1 - outside / farthestShare;
}

// The sum over the wishes that a demand states.
class Score
{
public:
    void add(int weight, double score)
    {
        m_met += weight * score;
        m_asked += weight;
        ++m_wishes;
    }

    DemandMatch match() const
    {
        return {m_asked == 0 ? 0 : static_cast<int>(100 * m_met / m_asked + roundingFault), m_wishes};
    }

private:
    double m_met = 0;
    int m_asked = 0;
    int m_wishes = 0;
};

}

std::optional<DemandMatch> DemandMatch::of(const DemandWishes &wishes, const OfferedCar &car)
{
    Score score;
    if (wishes.automobilType != 0) {
        if (car.automobilType != wishes.automobilType)
            return std::nullopt;
        score.add(TypeWeight, 1);
    }
    if (const auto range = statedRange(wishes.amountFrom, wishes.amountUpTo)) {
        const auto price = car.amount == 0 ? 0 : priceScore(*range, car.amount);
        if (!price)
            return std::nullopt;
        score.add(PriceWeight, *price);
    }
    if (const auto range = statedRange(shamsiYear(wishes.yearFrom), shamsiYear(wishes.yearUpTo))) {
        const auto years = car.year == 0 ? 0 : yearScore(*range, shamsiYear(car.year));
        if (!years)
            return std::nullopt;
        score.add(YearWeight, *years);
    }
    if (wishes.color != 0)
        score.add(ColorWeight, car.color == wishes.color ? 1 : 0);
    return score.match();
}

bool isOver(const QDateTime &latestDate, const QDate &today)
{
    return latestDate.isValid() && latestDate.date() < today;
}

bool isBetterMatch(const DemandMatch &one, int codeOfOne, const DemandMatch &other, int codeOfOther)
{
    return std::tuple(-one.percent, -one.wishes, codeOfOne) < std::tuple(-other.percent, -other.wishes, codeOfOther);
}
