// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/reports/income/IncomeBars.h"

#include <QWidget>

class QChart;
class QChartView;
class QPainter;

// The comprehensive report as bars from the right, the largest accounts first: income above, expenses below. What does not
// fit on it any more is one bar of its own on each side.
class IncomeChart : public QWidget
{
    Q_OBJECT

public:
    explicit IncomeChart(const QString &moneyUnit, QWidget *parent = nullptr);

    void setReport(const ComprehensiveReport &report);
    // Draws the chart over the whole rectangle, the heading above its title, in dark on light, whatever the window's size and
    // colours.
    void draw(QPainter &painter, const QRectF &rectangle, const QString &heading) const;
    // Names of the bars, from the top.
    QStringList categories() const;
    const QChart *chart() const;

protected:
    void changeEvent(QEvent *event) override;

private:
    void rebuild();
    void tell(bool over, int index);

    const QString m_moneyUnit;
    IncomeBars m_bars;
    QChartView *m_view;
};
