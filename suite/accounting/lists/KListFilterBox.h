// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListTraits.h"

#include <QGroupBox>

class KEdit;
class KFilterForm;
class QGridLayout;
class QHBoxLayout;

// The box above a list: its filters, the row limit and the search button.
class TZACCOUNTING_EXPORT KListFilterBox : public QGroupBox
{
    Q_OBJECT

public:
    // addOwn puts what the list shows besides its filters into the box's grid, behind them.
    KListFilterBox(const KListTraits &traits, QList<KListFilter> filters, const std::function<void(QGridLayout *)> &addOwn,
                   QWidget *page);

    KFilterForm &filters() const { return *m_filters; }
    // The line of the search button; null for a box without one and without a row limit.
    QHBoxLayout *searchRow() const { return m_searchRow; }

    // 0: no limit.
    int rowLimit() const;
    void setRowLimit(int rows);
    // The user's row limit for the lists of that section. An invalid limit is not kept.
    void readRowLimit(const QString &section);
    void writeRowLimit(const QString &section) const;

    // Reports the first invalid entry to the user and moves to it; true when there is none. It would be left out of
    // the search, and the list would show what nobody asked for.
    bool checkEntries();

Q_SIGNALS:
    // The search button, or Enter in an entry.
    void searchAsked();

private:
    void buildSearchRow(const KListTraits &traits, QGridLayout *grid);

    KFilterForm *m_filters;
    QHBoxLayout *m_searchRow = nullptr;
    KEdit *m_rowLimit = nullptr;
};
