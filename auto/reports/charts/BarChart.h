// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/reports/charts/ChartFigures.h"

#include <QWidget>

class QChart;
class QChartView;
class QPainter;

// One or two courses of bars from the right, the first bar uppermost.
class BarChart : public QWidget
{
    Q_OBJECT

public:
    struct Words
    {
        QString title;
        QString first;  // the name of the first course
        QString second; // empty: there is no second one
    };
    // More bars than that would have no room; the others are in the list beside the chart.
    static constexpr int mostBars = 15;

    explicit BarChart(QWidget *parent = nullptr);

    void setBars(const Words &words, const QList<ChartFigures::Bar> &bars);
    // Over the whole rectangle, dark on light whatever the look.
    void draw(QPainter &painter, const QRectF &rectangle, const QString &heading) const;
    const QChart *chart() const;

protected:
    void changeEvent(QEvent *event) override;

private:
    void rebuild();

    Words m_words;
    QList<ChartFigures::Bar> m_bars;
    QChartView *m_view;
};
