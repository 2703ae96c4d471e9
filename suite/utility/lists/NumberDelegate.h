// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QStyledItemDelegate>

// Paints the cells of a list. A number (KListModel::SortRole) that does not fit into its cell is marked instead of cut; a text ends in
// "…". The tip shows either whole. A cell with colours of its own keeps them in the selected row.
class TZUTILITY_EXPORT NumberDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option, const QModelIndex &index) override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
    virtual bool isNumber(const QModelIndex &index) const;
};
