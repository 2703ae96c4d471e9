// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/CellDelegate.h"

#include "suite/utility/lists/KListModel.h"
#include "suite/utility/lists/RowMenuMark.h"
#include "suite/utility/values/CodeText.h"

namespace {

// The mark is as wide as the row is high.
QStyleOptionViewItem clearOfMark(QStyleOptionViewItem option)
{
    const int mark = option.rect.height();
    if (option.widget && !option.widget->isRightToLeft())
        option.rect.setRight(option.rect.right() - mark);
    else
        option.rect.setLeft(option.rect.left() + mark);
    return option;
}

}

CellDelegate::CellDelegate(const RowMenuMark &mark, QObject *parent)
    : NumberDelegate(parent)
    , m_mark(mark)
{
}

void CellDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    if (m_mark.standsIn(index.column()))
        NumberDelegate::paint(painter, clearOfMark(option), index);
    else
        NumberDelegate::paint(painter, option, index);
}

bool CellDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option, const QModelIndex &index)
{
    return NumberDelegate::helpEvent(event, view, m_mark.standsIn(index.column()) ? clearOfMark(option) : option, index);
}

void CellDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    NumberDelegate::initStyleOption(option, index);
    if (!index.data(KListModel::LeftToRightRole).toBool())
        return;
    option->direction = Qt::LeftToRight;
    option->text = CodeText::shown(option->text);
}
