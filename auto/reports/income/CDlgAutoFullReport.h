// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/reports/ChartWindow.h"
#include "auto/reports/income/ComprehensiveReport.h"
#include "suite/utility/lists/KListModel.h"
#include "suite/utility/lists/KSortOrder.h"

class IncomeChart;

// The comprehensive report ("گزارش جامع"): income and expenses by account within a range of days, their totals and their
// difference, as a list and as a chart. Activating an account opens its documents, or picks it in choice mode.
class CDlgAutoFullReport : public ChartWindow
{
    Q_OBJECT

public:
    // Opens on the current fiscal year.
    explicit CDlgAutoFullReport(QWidget *parent = nullptr);
    ~CDlgAutoFullReport() override;

    // Opens it modally if the user has access to it; otherwise shows a message.
    static void Show(QWidget *parent);

    // For picking an account; to be called before the window is shown.
    void setChoiceMode(bool on);
    // The account that was picked; 0 before and without one.
    int chosenCode() const { return m_chosenCode; }

    IncomeChart *chart() const { return m_chart; }
    ListReport listReport() const override;

public Q_SLOTS:
    void search() override;

protected:
    void drawChart(QPainter &painter, const QRectF &rectangle) const override;
    bool OnOK() override;
    void done(int result) override;

private:
    CDlgAutoFullReport(const OfficeSettings &settings, QWidget *parent);
    void readSettings();
    void showRows();
    void sortBy(int column);
    void activated(int key);
    const IncomeAndExpenses::Account *account(int key) const;
    // The range of the rows, in words; an open end is empty.
    QString fromText() const;
    QString toText() const;

    ComprehensiveReport m_report;
    QDateTime m_rangeStart; // what the rows were read by; the fields may have moved on
    QDateTime m_rangeEnd;
    bool m_choiceMode = false;
    int m_chosenCode = 0;
    KSortOrder m_order;
    IncomeChart *m_chart;
};
