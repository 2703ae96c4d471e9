// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/utility/lists/KListModel.h"
#include "suite/utility/lists/KSortOrder.h"

// The order of a list as set by its titles, kept in the user's settings: the columns after ORDER BY, and the column whose
// title carries the mark.
class TZACCOUNTING_EXPORT KListOrder
{
public:
    // What a list begins with while nothing is kept.
    struct Defaults
    {
        QString sort;
        QString emptySort; // order while the stored one is an empty text; empty: sort
        int column = 1;
    };

    KListOrder() = default;
    KListOrder(QString section, QVector<KListModel::Column> columns, Defaults defaults);

    // A list without a sortable title keeps no order and has no mark.
    void read();
    void write() const;

    const QString &sort() const { return m_sort; }
    // -1: none.
    int markedColumn() const { return m_clicked.column; }
    bool isDefault() const { return m_sort == m_defaults.sort; }
    // The default order; the mark stays where it is.
    void setDefault() { m_sort = m_defaults.sort; }
    // What a click on a title asks for. False, with nothing changed, for a title that does not sort.
    bool click(int column);

private:
    bool isSortable() const;
    bool isKnown(const QString &sort) const;

    QString m_section;
    QVector<KListModel::Column> m_columns;
    Defaults m_defaults;
    KSortOrder m_clicked;
    QString m_sort;
};
