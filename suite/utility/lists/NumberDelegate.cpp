// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/NumberDelegate.h"

#include "suite/utility/entries/CutNumber.h"
#include "suite/utility/lists/KListModel.h"
#include "suite/utility/lists/ListLook.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>

namespace {

// A text that is laid out may be a little wider than the sum of its letters: one that just fits has a tip rather than none.
constexpr int rounding = 2;

bool isCut(const QStyleOptionViewItem &cell, const QString &text)
{
    const int margin = cell.widget->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &cell, cell.widget) + 1;
    return cell.fontMetrics.horizontalAdvance(text) > cell.rect.width() - 2 * margin - rounding;
}

}

void NumberDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->state & QStyle::State_Selected) {
        // The row around it is drawn as selected before.
        if (option->backgroundBrush.style() != Qt::NoBrush)
            option->state &= ~QStyle::State_Selected;
        if (const QVariant ink = index.data(Qt::ForegroundRole); ink.isValid())
            option->palette.setBrush(QPalette::HighlightedText, ink.value<QBrush>());
    }
    if (isNumber(index))
        CutNumber::markIfCut(*option);
}

QSize NumberDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return {size.width(), qMax(size.height(), ListLook::rowHeight(option.fontMetrics))};
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
    shown.widget = view;
    const QString text = index.data().toString();
    const bool hasTipOfItsOwn = index.data(Qt::ToolTipRole).isValid() && !index.data(Qt::ToolTipRole).toString().isEmpty();
    const bool isMarked = shown.text.contains(CutNumber::mark());
    if (event->type() != QEvent::ToolTip || (!isMarked && (hasTipOfItsOwn || !isCut(shown, text))))
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QToolTip::showText(event->globalPos(), text, view);
    return true;
}
