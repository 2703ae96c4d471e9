// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/accounting/lists/KListCommands.h"
#include "suite/accounting/lists/KListTraits.h"

#include <QObject>

class KEmptyState;
class KExtListCtrl;
class KListCard;
class ListSums;
class QLabel;

// What a list page says of its rows: at the foot of their card how many there are and what their amounts come to; in their place, where
// there are none, why that is and what helps.
class TZACCOUNTING_EXPORT KListFoot : public QObject
{
    Q_OBJECT

public:
    // Why a list shows nothing.
    enum class Emptiness {
        None,     // it shows rows, or nobody has asked for any yet
        Narrowed, // the quick filter keeps its rows out of sight
        Filtered, // its filter finds none
        Bare      // there are none to find
    };

    // The traits outlive it.
    KListFoot(KListCard *card, KExtListCtrl *list, const KListTraits &traits);

    QString countText() const;
    KEmptyState *emptyState() const { return m_empty; }
    // Whether it has columns that sum.
    bool hasSums() const { return m_sums; }

    // The rows in sight have changed; so many more were left out by the row limit, or at least so many.
    void tellRows(qint64 leftOut, bool isAtLeast);
    void refreshSums();
    // The command that adds the first row, of a bare list; null: there is none.
    void tellEmptiness(Emptiness emptiness, const KListCommand *adding);

Q_SIGNALS:
    // The button below the sentence was pressed.
    void mendAsked();

private:
    KExtListCtrl *m_list;
    const KListTraits &m_traits;
    QLabel *m_count;
    ListSums *m_sums = nullptr;
    KEmptyState *m_empty;
};
