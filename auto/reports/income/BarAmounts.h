// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/reports/income/IncomeBars.h"

#include <QColor>
#include <QList>

class QChart;
class QFont;
class QGraphicsPathItem;
class QGraphicsSimpleTextItem;

// The amounts of a chart's bars, each at the end of its bar, and the gaps that tell which bars are cut. The items belong to the chart.
class BarAmounts
{
public:
    struct Inks
    {
        QColor text;       // beside a bar
        QColor inside;     // in a bar
        QColor background; // what a gap lets through
    };

    BarAmounts(QChart *chart, const IncomeBars &bars, const Inks &inks);

    // How far the bar is drawn, in units of the axis: a cut one to the end of the axis, a very small one so that it is seen.
    static double drawnLength(const IncomeBars &bars, const IncomeBars::Bar &bar);
    // The end of the axis, which is behind its last label.
    static double axisEnd(const IncomeBars &bars);

    // Puts everything where the bars are now.
    void place(const QFont &font);

private:
    struct Item
    {
        QGraphicsSimpleTextItem *amount;
        QGraphicsPathItem *gap; // nullptr: not cut
    };
    double position(double amount) const;
    void placeAmount(QGraphicsSimpleTextItem *amount, double end, double middle, bool growsLeft);

    QChart *m_chart;
    IncomeBars m_bars;
    Inks m_inks;
    QList<Item> m_items; // as the bars
};
