// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/reports/ListReport.h"
#include "suite/accounting/TzAccountingExport.h"

#include <QAbstractTableModel>

// The columns of a report's table as they are arranged: which are printed (their check box), in which order, how wide.
class TZACCOUNTING_EXPORT ReportColumnsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit ReportColumnsModel(QObject *parent = nullptr);

    // The layout's columns in their order, then those of the table that it leaves out.
    void arrange(const ListReport &report, const ReportLayout &layout);
    // The checked ones.
    QVector<ReportLayout::Column> chosen() const;
    // Moves a row by that many places; returns its new position (the same when it cannot move).
    int move(int row, int places);
    double share(int row) const;
    void setShare(int row, double percent);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    struct Entry
    {
        ReportLayout::Column column;
        bool printed;
    };

    QVector<Entry> m_entries;
};
