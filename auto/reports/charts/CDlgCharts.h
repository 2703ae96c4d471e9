// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/reports/ChartWindow.h"
#include "auto/reports/charts/ChartFigures.h"

class BarChart;
class KDropDown;
class KEmptyState;

// The office's charts ("نمودارها"): what the cars earned and how long they stood, what is asked for beside what is there, who wrote for how much
// commission. Each as bars and as a list of the same figures.
class CDlgCharts : public ChartWindow
{
    Q_OBJECT

public:
    // As they are offered.
    enum class Kind {
        MarginByBrand,
        MarginByMonth,
        StandingByBrand,
        StandingByMonth,
        DemandAndStock,
        CommissionByClerk,
        CommissionByMonth
    };
    static constexpr int kindCount = 7;

    // Opens on the current fiscal year.
    explicit CDlgCharts(QWidget *parent = nullptr);
    ~CDlgCharts() override;

    // Opens it modally if the user has access to it; otherwise shows a message.
    static void Show(QWidget *parent);

    void choose(Kind kind);
    KDropDown *kinds() const { return m_kind; }
    KDropDown *brands() const { return m_brand; }
    const BarChart *chart() const { return m_chart; }
    const QList<ChartFigures::Bar> &bars() const { return m_bars; }
    ListReport listReport() const override;

public Q_SLOTS:
    void search() override;

protected:
    void addBeforeDays(QHBoxLayout *line) override;
    void addBehindDays(QHBoxLayout *line) override;
    void drawChart(QPainter &painter, const QRectF &rectangle) const override;

private:
    CDlgCharts(const OfficeSettings &settings, QWidget *parent);
    void showBars();
    Kind kind() const;
    QString rangeText() const;

    QList<ChartFigures::Bar> m_bars;
    KDropDown *m_kind;
    KDropDown *m_brand;
    KEmptyState *m_empty = nullptr;
    BarChart *m_chart;
    QLabel *m_sum;
};
