// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/lists/NumberDelegate.h"

class RowMenuMark;

// Paints the cells of the suite's list: figures and codes from left to right, and the text of a row's last cell clear of the mark of
// the row's menu. Part of KExtListCtrl.
class CellDelegate : public NumberDelegate
{
    Q_OBJECT

public:
    CellDelegate(const RowMenuMark &mark, QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option, const QModelIndex &index) override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    const RowMenuMark &m_mark;
};
