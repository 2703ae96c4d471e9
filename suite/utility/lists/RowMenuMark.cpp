// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/RowMenuMark.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QHoverEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <QTreeView>

#include <utility>

#include "suite/utility/lists/ListLook.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"

using namespace Qt::StringLiterals;
using HostColors::Role;

RowMenuMark::RowMenuMark(QTreeView *list)
    : QObject(list)
    , m_list(list)
    , m_onSelected(LookIcons::icon(u":/icons/more.svg"_s, Role::OnSelect))
    , m_onHovered(LookIcons::icon(u":/icons/more.svg"_s, Role::Quiet))
{
    list->viewport()->installEventFilter(this);
    connect(list->verticalScrollBar(), &QScrollBar::valueChanged, this, &RowMenuMark::rowsMoved);
}

QString RowMenuMark::name()
{
    return u"فرمان‌های ردیف"_s;
}

void RowMenuMark::setOffered(bool offered)
{
    m_offered = offered;
    m_list->viewport()->update();
}

bool RowMenuMark::standsIn(int column) const
{
    return m_offered && column == ListLook::lastShown(*m_list->header());
}

bool RowMenuMark::isCurrent(const QModelIndex &row) const
{
    const QItemSelectionModel *marked = m_list->selectionModel();
    if (!marked->isSelected(row))
        return false;
    const QModelIndex current = marked->currentIndex();
    return current.row() == row.row() || !marked->isSelected(current);
}

QRect RowMenuMark::place(const QModelIndex &row) const
{
    const QRect cell = m_list->visualRect(row);
    const int left = m_list->isRightToLeft() ? 0 : m_list->viewport()->width() - cell.height();
    return {left, cell.top(), cell.height(), cell.height()};
}

void RowMenuMark::paint(QPainter &painter, const QModelIndex &row) const
{
    const bool selected = isCurrent(row);
    if (m_offered && !selected && m_list->selectionModel()->isSelected(row))
        painter.fillRect(place(row).adjusted(0, 0, 0, -1), HostColors::of(Role::Select));
    if (!m_offered || (!selected && row.row() != m_hoveredRow))
        return;
    // A text of the last column would show between the dots. The line below the row stays.
    const QRect mark = place(row);
    painter.fillRect(mark.adjusted(0, 0, 0, -1), HostColors::of(m_list->selectionModel()->isSelected(row) ? Role::Select : Role::Hover));
    const int size = LookSizes::scaled(LookSizes::iconSize);
    QRect icon(0, 0, size, size);
    icon.moveCenter(mark.center());
    (selected ? m_onSelected : m_onHovered).paint(&painter, icon);
}

bool RowMenuMark::isOnMark(const QPoint &point) const
{
    const QModelIndex row = m_list->indexAt(point).siblingAtColumn(0);
    return m_offered && row.isValid() && (isCurrent(row) || row.row() == m_hoveredRow) && place(row).contains(point);
}

void RowMenuMark::followPointer()
{
    m_hoveredRow = m_pointer && m_list->viewport()->rect().contains(*m_pointer) ? m_list->indexAt(*m_pointer).row() : -1;
}

// The view moves what it has painted, and the mark with it.
void RowMenuMark::rowsMoved()
{
    if (!m_pointer)
        return;
    followPointer();
    m_list->viewport()->update();
}

bool RowMenuMark::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
        m_pointer = static_cast<QHoverEvent *>(event)->position().toPoint();
        followPointer();
        break;
    case QEvent::HoverLeave:
        m_pointer.reset();
        followPointer();
        break;
    case QEvent::MouseButtonPress: {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        const QPoint point = mouse->position().toPoint();
        m_pressedRow = mouse->button() == Qt::LeftButton && isOnMark(point) ? m_list->indexAt(point).row() : -1;
        break;
    }
    case QEvent::MouseButtonRelease: {
        const QPoint point = static_cast<QMouseEvent *>(event)->position().toPoint();
        const int pressed = std::exchange(m_pressedRow, -1);
        // The list takes the click first: the row is selected when the menu comes.
        if (pressed >= 0 && isOnMark(point) && m_list->indexAt(point).row() == pressed)
            QMetaObject::invokeMethod(this, &RowMenuMark::clicked, Qt::QueuedConnection);
        break;
    }
    case QEvent::MouseButtonDblClick:
        // The second click of an impatient hand does not open the record.
        if (isOnMark(static_cast<QMouseEvent *>(event)->position().toPoint()))
            return true;
        break;
    case QEvent::ToolTip: {
        const auto *help = static_cast<QHelpEvent *>(event);
        if (!isOnMark(help->pos()))
            break;
        QToolTip::showText(help->globalPos(), name() + u" ("_s + QKeySequence(Qt::SHIFT | Qt::Key_F10).toString(QKeySequence::NativeText) + u')', m_list);
        return true;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
