// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/reports/charts/ChartFigures.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/reports/ListReport.h"
#include "suite/utility/frame/KDialog.h"

class BarChart;
class KDateEdit;
class KDropDown;
class KEmptyState;
class KExtListCtrl;
class OfficeSettings;
class QLabel;

// The office's charts ("نمودارها"): what the cars earned and how long they stood, what is asked for beside what is there, who wrote for how much
// commission. Each as bars and as a list of the same figures.
class CDlgCharts : public KDialog, private KSecurity
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
    KDateEdit *fromDate() const { return m_from; }
    KDateEdit *toDate() const { return m_to; }
    KExtListCtrl *list() const { return m_list; }
    const BarChart *chart() const { return m_chart; }
    const QList<ChartFigures::Bar> &bars() const { return m_bars; }
    ListReport listReport() const;

public Q_SLOTS:
    // Reads what the filter says; an entry that is no date is reported, and what is shown stays. Throws CMySQLException.
    void search();
    void print();
    void printChart();

private:
    CDlgCharts(const OfficeSettings &settings, QWidget *parent);
    QWidget *buildFilter();
    QWidget *buildBoth();
    void addCommands();
    void showBars();
    Kind kind() const;
    QString rangeText() const;

    QList<ChartFigures::Bar> m_bars;
    KDropDown *m_kind;
    KDateEdit *m_from;
    KDateEdit *m_to;
    KDropDown *m_brand;
    KExtListCtrl *m_list;
    KEmptyState *m_empty = nullptr;
    BarChart *m_chart;
    QLabel *m_count;
    QLabel *m_sum;
};
