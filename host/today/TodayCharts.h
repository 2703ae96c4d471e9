// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>
#include <QWidget>

#include <utility>

class DayCurves;
class MonthBars;

// The two charts of the month's figures: contracts of the last months, and what the running one has brought and cost so far. Time runs from right
// to left. There is nothing to do in it; who does not see it is told the figures by the accessible descriptions of both.
class TodayCharts : public QWidget
{
    Q_OBJECT

public:
    explicit TodayCharts(QWidget *parent = nullptr);

    // Name and contracts of each month, the running one first.
    void setMonths(const QList<std::pair<QString, int>> &months);
    // Of the running month, as setMonths named it, a value per day from its first to today, each with those before it. Without any there is no
    // second chart.
    void setDays(const QList<double> &income, const QList<double> &expenses);

private:
    QString m_month;
    MonthBars *m_bars;
    DayCurves *m_curves;
    QWidget *m_curvesHead;
};
