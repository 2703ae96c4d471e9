// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/reports/ReportLayout.h"
#include "suite/accounting/TzAccountingExport.h"
#include "suite/utility/lists/KListModel.h"

class KExtListCtrl;

// A list that is put on paper or into a spreadsheet: named texts, one table, and the layout they are put into.
//
// Texts: "Title"; the six corners around it ("RightTop", "RightCenter", "RightBottom", "LeftTop", "LeftCenter", "LeftBottom");
// any other name ("Count", "Amount", ...) stands below the table's last row, in the order of the calls.
class TZACCOUNTING_EXPORT ListReport
{
public:
    // Under these two names the office keeps its layouts of the report.
    ListReport(const QString &group, const QString &report);

    QString group() const { return m_group; }
    QString report() const { return m_report; }

    void setText(const QString &element, const QString &text);
    // Empty when it was not set.
    QString text(const QString &element) const;

    // The one table element. From a list: its rows as they stand, its columns in the order and without those that the user
    // has hidden. The rows are shared with the list, not copied.
    void setTable(const QString &element, const KExtListCtrl *list);
    void setTable(const QString &element, const QVector<KListModel::Column> &columns, const QVector<KListModel::Row> &rows);
    // A sum under one column of the table.
    struct FooterCell
    {
        int column = 0;
        QString title;
        double sum = 0; // in the money unit
    };
    // Two rows more at the end of the table: the titles, and the sums below them. After setTable.
    void addFooter(const QVector<FooterCell> &cells);
    // All columns of the table in its own order, titles without the sort mark.
    const QVector<KListModel::Column> &columns() const { return m_columns; }
    const QVector<KListModel::Row> &rows() const { return m_rows; }

    // Takes the stored layout of that name, or the default one. False when there is none that fits the table.
    bool loadLayout(const QString &name = {});
    // The layout of a report that nobody has arranged: every column, fitted; landscape for a wide table, and in the smallest
    // letters for a very wide one.
    void buildStandard(const QString &title);
    void setLayout(const ReportLayout &layout) { m_layout = layout; }
    const ReportLayout &layout() const { return m_layout; }

    // --- What the layout shows, placeholders filled ---
    QString shownTitle() const;
    QString shownCorner(const QString &corner) const;
    // Below the table, each text on its own.
    QStringList shownSummary() const;
    // One column of the paper: the table's column it shows, and its share of the width (0: fitted).
    struct ShownColumn
    {
        int column;
        double share;
    };
    QVector<ShownColumn> shownColumns() const;

private:
    int columnOf(const QString &title) const;

    QString m_group;
    QString m_report;
    QVector<std::pair<QString, QString>> m_texts;
    QString m_table;
    QVector<KListModel::Column> m_columns;
    QVector<int> m_order; // of the columns as the list shows them
    QVector<KListModel::Row> m_rows;
    ReportLayout m_layout;
};
