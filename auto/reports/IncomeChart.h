// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/reports/ComprehensiveReport.h"

#include <QWidget>

class QChartView;
class QPainter;

// The comprehensive report as bars from the right, the largest accounts first: income above, expenses below. What does not
// fit on it any more is one bar of its own on each side.
class IncomeChart : public QWidget
{
    Q_OBJECT

public:
    static constexpr int barsOfASide = 8;

    explicit IncomeChart(QWidget *parent = nullptr);

    void setReport(const ComprehensiveReport &report);
    // Draws the chart with its title into the rectangle, in dark on light.
    void draw(QPainter &painter, const QRectF &rectangle);
    QStringList categories() const { return m_categories; }

protected:
    void changeEvent(QEvent *event) override;

private:
    void rebuild();
    void applyColors(bool forPaper);

    ComprehensiveReport m_report;
    QStringList m_categories; // from the top
    QChartView *m_view;
};
