// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/utility/frame/KDialog.h"

class KExtListCtrl;
class QStandardItemModel;
class QTreeView;

// The columns of a list in their order, ticked where they are shown: for the keyboard what dragging the titles is for the mouse.
class TZACCOUNTING_EXPORT CDlgListColumns : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgListColumns(KExtListCtrl *list, QWidget *parent = nullptr);
    ~CDlgListColumns() override;

    static void Show(KExtListCtrl *list, QWidget *parent);

    // The current column, by so many places; it stays where there is no place.
    void moveColumn(int places);
    QTreeView *columns() const { return m_view; }

protected:
    // Refused while no column is ticked.
    bool OnOK() override;

private:
    void fill(const QList<int> &order, bool asAtFirst);

    KExtListCtrl *m_list;
    QTreeView *m_view;
    QStandardItemModel *m_model;
};
