// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/reports/ListReport.h"
#include "suite/utility/frame/KDialog.h"

class KDateEdit;
class KExtListCtrl;
class OfficeSettings;
class QHBoxLayout;
class QLabel;
class QPainter;
class QPushButton;

// A window that tells figures of some days as a list beside a chart: the line of the days, the two sides, and the commands that print
// either. What the figures are is its own; it calls build() in its constructor.
class ChartWindow : public KDialog, protected KSecurity
{
    Q_OBJECT

public:
    ~ChartWindow() override;

    KExtListCtrl *list() const { return m_list; }
    KDateEdit *fromDate() const { return m_from; }
    KDateEdit *toDate() const { return m_to; }
    // The list as it is printed.
    virtual ListReport listReport() const = 0;

public Q_SLOTS:
    // Reads what the filter says; an entry that is no date is reported, and what is shown stays. Throws CMySQLException.
    virtual void search() = 0;
    void print();
    void printChart();

protected:
    // Whether the user has access to the form; otherwise a message is shown.
    static bool mayOpen(const QString &form);
    // The form names the rights, the section the settings.
    ChartWindow(const QString &form, const QString &title, const QString &section, QWidget *parent);

    struct Parts
    {
        QWidget *chart = nullptr;
        QString cancel = {}; // empty: there is no second button
        int listWidth = 0;   // of the two sides at first
        int chartWidth = 0;
        QList<QWidget *> foot = {}; // behind the count
    };
    // Shows the days of the fiscal year.
    void build(const Parts &parts, const OfficeSettings &settings);
    // What the filter asks for besides the days.
    virtual void addBeforeDays(QHBoxLayout *) { }
    virtual void addBehindDays(QHBoxLayout *) { }
    // Over the whole rectangle.
    virtual void drawChart(QPainter &painter, const QRectF &rectangle) const = 0;

    // Warns of a day that is none, with the focus on it.
    bool checkDays();
    bool warn(const QString &text, QWidget *field);
    QLabel *countLabel() const { return m_count; }
    QPushButton *searchButton() const { return m_search; }
    QPushButton *okButton() const { return m_ok; }

private:
    QWidget *buildFilter();
    QWidget *buildBoth(const Parts &parts);
    void addCommands();

    KDateEdit *m_from;
    KDateEdit *m_to;
    KExtListCtrl *m_list;
    QLabel *m_count;
    QPushButton *m_search = nullptr;
    QPushButton *m_ok = nullptr;
};
