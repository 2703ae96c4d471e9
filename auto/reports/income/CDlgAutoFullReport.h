// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/reports/income/ComprehensiveReport.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/reports/ListReport.h"
#include "suite/utility/frame/KDialog.h"
#include "suite/utility/lists/KListModel.h"
#include "suite/utility/lists/KSortOrder.h"

class IncomeChart;
class KDateEdit;
class KExtListCtrl;
class OfficeSettings;
class QLabel;
class QPushButton;

// The comprehensive report ("گزارش جامع"): income and expenses by account within a range of days, their totals and their
// difference, as a list and as a chart. Activating an account opens its documents, or picks it in choice mode.
class CDlgAutoFullReport : public KDialog, private KSecurity
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

    KExtListCtrl *list() const { return m_list; }
    KDateEdit *fromDate() const { return m_from; }
    KDateEdit *toDate() const { return m_to; }
    IncomeChart *chart() const { return m_chart; }
    // The list as it is printed.
    ListReport listReport() const;

public Q_SLOTS:
    // Reads the range as it stands; an entry that is not a date is reported, and the rows stay. Throws CMySQLException.
    void search();
    void print();
    void printChart();

protected:
    bool OnOK() override;
    void done(int result) override;

private:
    CDlgAutoFullReport(const OfficeSettings &settings, QWidget *parent);
    QWidget *buildFilter();
    QWidget *buildBoth();
    void addCommands();
    void readSettings();
    void showRows();
    void sortBy(int column);
    void activated(int key);
    const IncomeAndExpenses::Account *account(int key) const;
    bool warn(const QString &text, QWidget *field);
    // The range of the rows, in words; an open end is empty.
    QString fromText() const;
    QString toText() const;

    ComprehensiveReport m_report;
    QDateTime m_rangeStart; // what the rows were read by; the fields may have moved on
    QDateTime m_rangeEnd;
    bool m_choiceMode = false;
    int m_chosenCode = 0;
    KSortOrder m_order;
    KDateEdit *m_from;
    KDateEdit *m_to;
    KExtListCtrl *m_list;
    IncomeChart *m_chart;
    QLabel *m_count;
    QPushButton *m_search = nullptr;
    QPushButton *m_ok = nullptr;
};
