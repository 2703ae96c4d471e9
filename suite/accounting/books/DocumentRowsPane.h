// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/utility/lists/KListModel.h"

#include <QWidget>

class KExtListCtrl;
class QLabel;

// The rows of one accounting document with their totals, for viewing only.
class TZACCOUNTING_EXPORT DocumentRowsPane : public QWidget
{
    Q_OBJECT

public:
    // The columns are kept in the user's settings under the name.
    explicit DocumentRowsPane(const QString &settingName, QWidget *parent = nullptr);

    // Document number 0 empties the pane. Throws CMySQLException.
    void showDocument(int num, int fiscalYear);

    // A cell of a debit or credit column: empty where it holds nothing, so that the eye finds the side that does.
    static KListModel::Cell sideCell(double amount);

    KExtListCtrl *list() const { return m_list; }
    QString totalsText() const;

private:
    KExtListCtrl *m_list;
    QLabel *m_totals;
};
