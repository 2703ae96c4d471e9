// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"

#include <QLabel>

#include <functional>

class KExtListCtrl;

// What the amounts of a list's rows come to, at its foot: of the columns that sum, as far as they are shown, and of the rows in sight. Where
// several rows are marked, also of those.
class TZACCOUNTING_EXPORT ListSums : public QLabel
{
    Q_OBJECT

public:
    // Without totals the list sums up its rows itself, and the marked ones alone are told.
    ListSums(KExtListCtrl *list, bool hasTotals, QWidget *card);

    // Whether the list has a column that sums.
    static bool isWanted(const KExtListCtrl &list);
    // The rows, the marks or the columns have changed.
    void refresh();

private:
    using Sums = QList<std::pair<QString, double>>;

    bool isShown() const;
    QString sums(const QString &start, const std::function<Sums(int column)> &sumsOf) const;

    KExtListCtrl *m_list;
    bool m_hasTotals;
    QString m_unit; // of money; read when the first sums are shown
};
