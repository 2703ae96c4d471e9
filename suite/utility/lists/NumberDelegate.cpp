// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/NumberDelegate.h"

#include "suite/utility/entries/CutNumber.h"
#include "suite/utility/lists/KListModel.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>

void NumberDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (isNumber(index))
        CutNumber::markIfCut(*option);
}

bool NumberDelegate::isNumber(const QModelIndex &index) const
{
    switch (index.data(KListModel::SortRole).typeId()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

bool NumberDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option, const QModelIndex &index)
{
    QStyleOptionViewItem shown = option;
    initStyleOption(&shown, index);
    if (event->type() != QEvent::ToolTip || !shown.text.contains(CutNumber::mark()))
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QToolTip::showText(event->globalPos(), index.data().toString(), view);
    return true;
}
