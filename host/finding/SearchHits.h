// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/search/SearchFinding.h"

#include <QAbstractListModel>

// What was found, row by row: the title of a group, then its hits. A row's accessible text is all that it says.
class SearchHits final : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        IsTitle = Qt::UserRole,
        Line,
        Aside,
        Icon,
        CountText // of a title
    };

    explicit SearchHits(QObject *parent = nullptr);

    void show(const QList<SearchFinding::Group> &groups);
    bool isEmpty() const { return m_rows.isEmpty(); }
    // The row's group, also of a title; null for no row.
    const SearchFinding::Group *group(int row) const;
    // Null for a title and for no row.
    const SearchHit *hit(int row) const;
    // From that row on, in that direction (1 or -1), itself included; -1 when there is none.
    int nextHit(int row, int direction) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    struct Row
    {
        qsizetype group = 0;
        qsizetype hit = -1; // -1: the title
    };

    QList<SearchFinding::Group> m_groups;
    QList<Row> m_rows;
};
