// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/cars/register/editor/ProfitAndLoss.h"

#include <QDate>
#include <QList>
#include <QString>

// Rule: the bars of each chart, from what was sold, asked for and written.
namespace ChartFigures {

// A car that was sold.
struct Sale
{
    QString brand; // empty: unknown
    QDate sold;
    int standing = -1; // days from its introduction to its sale; below 0: not known
    SaleAmounts amounts;
};

// What one contract earned.
struct Earning
{
    QString clerk; // empty: somebody who is gone
    QDate written;
    double commission = 0; // in the money unit
};

// Open demands and unsold cars of one brand.
struct Wanted
{
    QString brand; // empty: any
    int demands = 0;
    int cars = 0;
};

struct Bar
{
    QString name;
    int count = 0;     // of what is in it
    double first = 0;  // of the chart's first course
    double second = 0; // of its second one; 0 in a chart of one course
};

// Sums of the profit and loss; the largest first, months in their order.
QList<Bar> marginByBrand(const QList<Sale> &sales);
QList<Bar> marginByMonth(const QList<Sale> &sales);
// Averages in days, of those of which it is known.
QList<Bar> standingByBrand(const QList<Sale> &sales);
QList<Bar> standingByMonth(const QList<Sale> &sales);
QList<Bar> commissionByClerk(const QList<Earning> &earnings);
QList<Bar> commissionByMonth(const QList<Earning> &earnings);
// Demands beside cars; what is most lacking first, of what is lacking alike the most wanted.
QList<Bar> demandAndStock(const QList<Wanted> &wanted);

}
