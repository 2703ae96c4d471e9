// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/reports/ListReport.h"

#include <QVector>

#include <functional>

class KExtListCtrl;
class QWidget;

// How a list is printed.
struct KListReport
{
    QString title;
    QString group; // the office keeps its layouts under group and report; no report: the list is not printed
    QString report;
    QVector<std::pair<QString, QString>> texts = {}; // further text elements by name; see ListReport
};

// The ways a list page is taken out: the report's window, PDF, spreadsheet, and the layout behind them.
class TZACCOUNTING_EXPORT KListPrinting
{
public:
    using Work = std::function<void(ListReport &report)>;

    // withReport passes the report of the list as it stands to a piece of work if the user may print it, and reports what the
    // work throws. The page owns the windows.
    KListPrinting(std::function<void(const Work &)> withReport, QWidget *page);

    // The report in its window.
    void print() const;
    // An arrow with the menu of the ways out; it offers the layout, which is data of the office, while that may be changed.
    QWidget *makeMenu(QWidget *parent, const std::function<bool()> &mayArrange) const;

    // The list's rows and columns, the texts of its description, the print date ("LeftBottom") and the count ("Count"), in the stored
    // layout when there is one.
    static ListReport report(const KListReport &spec, const KExtListCtrl *list, const QString &count);

private:
    std::function<void(const Work &)> m_withReport;
    QWidget *m_page;
};
