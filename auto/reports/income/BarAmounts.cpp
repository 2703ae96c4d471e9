// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/income/BarAmounts.h"

#include "suite/utility/values/Money.h"

#include <QChart>
#include <QGraphicsPathItem>
#include <QGraphicsSimpleTextItem>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

constexpr double aboveTheBars = 100;
constexpr double padding = 4; // between a bar's end and its amount

// A slanted stripe across a bar of that height, around its middle.
QPainterPath gapPath(double height)
{
    constexpr double width = 3;
    const double slant = height / 3;
    QPainterPath path;
    path.moveTo(slant, 0);
    path.lineTo(slant + width, 0);
    path.lineTo(width, height);
    path.lineTo(0, height);
    path.closeSubpath();
    return path;
}

}

BarAmounts::BarAmounts(QChart *chart, const IncomeBars &bars, const Inks &inks)
    : m_chart(chart)
    , m_bars(bars)
    , m_inks(inks)
{
    for (const IncomeBars::Bar &bar : bars.bars) {
        auto *amount = new QGraphicsSimpleTextItem(DToMoney(bar.amount), chart);
        amount->setZValue(aboveTheBars);
        QGraphicsPathItem *gap = nullptr;
        if (bars.isCut(bar)) {
            gap = new QGraphicsPathItem(chart);
            gap->setZValue(aboveTheBars);
            gap->setPen(Qt::NoPen);
            gap->setBrush(inks.background);
        }
        m_items.append({amount, gap});
    }
}

double BarAmounts::axisEnd(const IncomeBars &bars)
{
    // Room for the last label, which is not shown where half of it would be outside.
    return bars.highest + bars.step / 2;
}

double BarAmounts::drawnLength(const IncomeBars &bars, const IncomeBars::Bar &bar)
{
    constexpr double leastPart = 150; // of the axis
    const double amount = bar.amount / bars.unit;
    if (bars.isCut(bar))
        return amount > 0 ? axisEnd(bars) : bars.lowest;
    const double least = (axisEnd(bars) - bars.lowest) / leastPart;
    return std::copysign(std::max(std::abs(amount), least), amount);
}

// Amounts grow from the right.
double BarAmounts::position(double amount) const
{
    const QRectF plot = m_chart->plotArea();
    return plot.right() - (amount - m_bars.lowest) / (axisEnd(m_bars) - m_bars.lowest) * plot.width();
}

// Beside the bar's end; where the plot ends before, inside a bar that is long enough, or else at the foot of a short one.
void BarAmounts::placeAmount(QGraphicsSimpleTextItem *amount, double end, double middle, bool growsLeft)
{
    const QRectF plot = m_chart->plotArea();
    const QSizeF size = amount->boundingRect().size();
    const auto leftOf = [&size](double x) { return x - padding - size.width(); };
    const auto rightOf = [](double x) { return x + padding; };
    const double foot = position(0);
    double x = growsLeft ? leftOf(end) : rightOf(end);
    bool isInside = false;
    if (x < plot.left() || x + size.width() > plot.right()) {
        isInside = std::abs(end - foot) > size.width() + 2 * padding;
        const double from = isInside ? end : foot;
        x = growsLeft ? rightOf(from) : leftOf(from);
    }
    amount->setBrush(isInside ? m_inks.inside : m_inks.text);
    amount->setPos(x, middle - size.height() / 2);
}

void BarAmounts::place(const QFont &font)
{
    const QRectF plot = m_chart->plotArea();
    const double room = plot.height() / double(std::max<qsizetype>(1, m_items.size()));
    for (qsizetype i = 0; i < m_items.size(); ++i) {
        const IncomeBars::Bar &bar = m_bars.bars.at(i);
        const auto &[amount, gap] = m_items.at(i);
        const double middle = plot.top() + (double(i) + 0.5) * room;
        const bool growsLeft = bar.amount > 0;
        double end = position(drawnLength(m_bars, bar));
        if (gap) {
            gap->setPath(gapPath(room));
            const double width = gap->boundingRect().width();
            end += growsLeft ? padding : -padding - width;
            gap->setPos(end, middle - room / 2);
            end += growsLeft ? width : 0;
        }
        amount->setFont(font);
        placeAmount(amount, end, middle, growsLeft);
    }
}
