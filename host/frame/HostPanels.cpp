// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/HostPanels.h"

#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QApplication>
#include <QListView>
#include <QPainter>
#include <QStyleOption>
#include <QTableView>
#include <QTreeView>

namespace {

using HostColors::Role;

QColor color(Role role)
{
    return HostColors::of(role);
}

bool is(const QStyleOption &option, QStyle::StateFlag flag)
{
    return option.state & flag;
}

// A border of that width inside the rectangle.
void rounded(QPainter &painter, const QRect &rect, double corner, const QColor &ground, const QColor &border, int width = 1)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(width > 0 ? QPen(border, width) : QPen(Qt::NoPen));
    painter.setBrush(ground);
    const double inset = width / 2.0;
    painter.drawRoundedRect(QRectF(rect).adjusted(inset, inset, -inset, -inset), corner, corner);
    painter.restore();
}

struct Shape
{
    Role ground;
    Role border;
    int width = 1;
};

Shape primaryShape(const QStyleOption &option)
{
    if (!is(option, QStyle::State_Enabled))
        return {Role::NeutralSoft, Role::NeutralSoft};
    const Role ground = is(option, QStyle::State_Sunken) ? Role::AccentPress
        : is(option, QStyle::State_MouseOver)            ? Role::AccentHover
                                                         : Role::Accent;
    if (is(option, QStyle::State_HasFocus))
        return {ground, Role::Text, LookSizes::ring};
    return {ground, ground};
}

Shape plainShape(const QStyleOption &option)
{
    if (!is(option, QStyle::State_Enabled))
        return {Role::Window, Role::Line};
    const bool pressed = is(option, QStyle::State_Sunken) || is(option, QStyle::State_On);
    const bool hovered = is(option, QStyle::State_MouseOver);
    Shape shape{pressed ? Role::Select : hovered ? Role::Hover
                                                 : Role::Surface,
                pressed ? Role::Accent : hovered ? Role::Quiet
                                                 : Role::Edge};
    if (is(option, QStyle::State_HasFocus)) {
        shape.border = Role::Accent;
        shape.width = LookSizes::ring;
    }
    return shape;
}

// The first cell of a tree with branches stands beside them, and the row's bar at their edge is drawn already.
bool isBehindBranch(const QStyleOptionViewItem &option, const QWidget *view)
{
    const auto *tree = qobject_cast<const QTreeView *>(view);
    if (!tree || !tree->rootIsDecorated())
        return false;
    return tree->isRightToLeft() ? option.rect.right() < tree->viewport()->width() - 1 : option.rect.left() > 0;
}

}

void HostPanels::field(QPainter &painter, const QStyleOption &option, bool readOnly)
{
    const bool enabled = is(option, QStyle::State_Enabled);
    const bool focus = is(option, QStyle::State_HasFocus) && enabled;
    const QColor ground = enabled ? option.palette.color(QPalette::Base) : color(Role::Window);
    Role border = Role::Edge;
    int width = 1;
    if (!enabled) {
        border = Role::Line;
    } else if (readOnly) {
        border = Role::Accent;
        width = focus ? 1 : 0;
    } else if (focus) {
        border = Role::Accent;
        width = LookSizes::ring;
    } else if (is(option, QStyle::State_MouseOver)) {
        border = Role::Quiet;
    }
    rounded(painter, option.rect, LookSizes::controlCorner, ground, color(border), width);
}

void HostPanels::quietField(QPainter &painter, const QRect &rect)
{
    rounded(painter, rect, LookSizes::controlCorner, color(Role::Sunken), {}, 0);
}

void HostPanels::button(QPainter &painter, const QStyleOption &option, const QWidget *widget)
{
    const LookMarks::Button kind = LookMarks::button(widget);
    Shape shape = kind == LookMarks::Button::Primary ? primaryShape(option) : plainShape(option);
    const auto *push = qstyleoption_cast<const QStyleOptionButton *>(&option);
    const bool flat = kind == LookMarks::Button::Flat || (push && (push->features & QStyleOptionButton::Flat));
    const bool atRest = !is(option, QStyle::State_Sunken) && !is(option, QStyle::State_On) && !is(option, QStyle::State_MouseOver);
    if (flat && !is(option, QStyle::State_HasFocus) && (atRest || !is(option, QStyle::State_Enabled)))
        return;
    if (kind == LookMarks::Button::Danger && shape.border == Role::Edge)
        shape.border = Role::Danger;
    rounded(painter, option.rect, LookSizes::buttonCorner, color(shape.ground), color(flat && shape.width == 1 ? shape.ground : shape.border), shape.width);
}

void HostPanels::toolButton(QPainter &painter, const QStyleOption &option, const QWidget *widget)
{
    // One in a line of buttons is framed like them.
    if (LookMarks::isTall(widget) && !is(option, QStyle::State_AutoRaise)) {
        QStyleOption plain = option;
        plain.state &= ~QStyle::State_HasFocus; // the ring is drawn inside
        button(painter, plain, widget);
        return;
    }
    const bool enabled = is(option, QStyle::State_Enabled);
    if (enabled && (is(option, QStyle::State_Sunken) || is(option, QStyle::State_On)))
        rounded(painter, option.rect, LookSizes::buttonCorner, color(Role::Select), color(Role::Select));
    else if (enabled && is(option, QStyle::State_MouseOver))
        rounded(painter, option.rect, LookSizes::buttonCorner, color(Role::Hover), color(Role::Hover));
}

void HostPanels::card(QPainter &painter, const QRect &rect)
{
    rounded(painter, rect, LookSizes::cardCorner, color(Role::Surface), color(Role::Line));
}

void HostPanels::marked(QPainter &painter, const QStyleOption &option, const QWidget *widget)
{
    const QRect rect = option.rect;
    if (LookMarks::isCard(widget)) {
        card(painter, rect);
        return;
    }
    const LookMarks::Bar bar = LookMarks::bar(widget);
    if (bar == LookMarks::Bar::None)
        return;
    painter.fillRect(rect, color(Role::Surface));
    const int y = bar == LookMarks::Bar::Top ? rect.bottom() : rect.top();
    painter.fillRect(QRect(rect.left(), y, rect.width(), 1), color(Role::Line));
}

void HostPanels::checkMark(QPainter &painter, const QStyleOption &option)
{
    constexpr double corner = 4;
    const bool enabled = is(option, QStyle::State_Enabled);
    const bool on = is(option, QStyle::State_On) || is(option, QStyle::State_NoChange);
    const Role ground = !enabled ? (on ? Role::Disabled : Role::Window) : on ? Role::Accent
                                                                             : Role::Surface;
    const Role border = !enabled ? (on ? Role::Disabled : Role::Line) : on ? Role::Accent
        : is(option, QStyle::State_MouseOver)                              ? Role::Quiet
                                                                           : Role::Edge;
    rounded(painter, option.rect, corner, color(ground), color(border));
    if (!on)
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color(enabled ? Role::OnAccent : Role::Window), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QRectF box(option.rect);
    const auto at = [&box](double x, double y) { return QPointF(box.left() + box.width() * x, box.top() + box.height() * y); };
    if (is(option, QStyle::State_NoChange))
        painter.drawLine(at(0.28, 0.5), at(0.72, 0.5));
    else
        painter.drawPolyline(QPolygonF{at(0.24, 0.53), at(0.42, 0.71), at(0.77, 0.31)});
    painter.restore();
}

void HostPanels::radioMark(QPainter &painter, const QStyleOption &option)
{
    const bool enabled = is(option, QStyle::State_Enabled);
    const bool on = is(option, QStyle::State_On);
    const Role border = !enabled ? Role::Line : on ? Role::Accent
                                                   : Role::Edge;
    rounded(painter, option.rect, option.rect.width() / 2.0, color(enabled ? Role::Surface : Role::Window), color(border), on ? 2 : 1);
    if (on) {
        const int inset = qMax(3, option.rect.width() / 4);
        const QRect dot = option.rect.adjusted(inset, inset, -inset, -inset);
        rounded(painter, dot, dot.width() / 2.0, color(enabled ? Role::Accent : Role::Disabled), {}, 0);
    }
}

void HostPanels::focusRing(QPainter &painter, const QRect &rect)
{
    rounded(painter, rect, LookSizes::controlCorner, Qt::transparent, color(Role::Accent), LookSizes::ring);
}

void HostPanels::row(QPainter &painter, const QStyleOptionViewItem &option, const QWidget *view)
{
    constexpr int bar = LookSizes::rowBar;
    const bool selected = is(option, QStyle::State_Selected);
    const bool hovered = is(option, QStyle::State_MouseOver) && is(option, QStyle::State_Enabled);
    const QRect &rect = option.rect;
    if (selected)
        painter.fillRect(rect, option.palette.color(QPalette::Highlight));
    else if (hovered)
        painter.fillRect(rect, color(Role::Hover));
    else if (option.features & QStyleOptionViewItem::Alternate)
        painter.fillRect(rect, color(Role::Stripe));
    // A table with a grid has its own.
    const auto *table = qobject_cast<const QTableView *>(view);
    if (!qobject_cast<const QListView *>(view) && !(table && table->showGrid()))
        painter.fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), color(Role::Line));
    const bool first = option.viewItemPosition == QStyleOptionViewItem::Beginning || option.viewItemPosition == QStyleOptionViewItem::OnlyOne;
    if (!selected || !first || isBehindBranch(option, view))
        return;
    // Of the program: a window keeps its own focus while another one has the keys.
    const QWidget *now = QApplication::focusWidget();
    const bool focus = view && now && (view == now || view->isAncestorOf(now));
    // A cell of figures reads from the left; its row does not.
    const Qt::LayoutDirection direction = view ? view->layoutDirection() : option.direction;
    const int left = direction == Qt::RightToLeft ? rect.right() - bar + 1 : rect.left();
    painter.fillRect(QRect(left, rect.top(), bar, rect.height() - 1), color(focus ? Role::Accent : Role::Edge));
}

void HostPanels::cell(QPainter &painter, const QStyleOptionViewItem &option, const QWidget *view)
{
    // A tree and a table draw their rows as if none were selected and leave that to the cells.
    const bool inList = qobject_cast<const QListView *>(view);
    if (is(option, QStyle::State_Selected) || inList)
        row(painter, option, view);
    if (option.backgroundBrush.style() != Qt::NoBrush)
        painter.fillRect(option.rect.adjusted(0, 0, 0, -1), option.backgroundBrush);
}

void HostPanels::cross(QPainter &painter, const QStyleOption &option)
{
    const bool active = is(option, QStyle::State_MouseOver) || is(option, QStyle::State_Raised);
    if (active)
        rounded(painter, option.rect, LookSizes::controlCorner, color(Role::Hover), color(Role::Hover));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color(active ? Role::Text : Role::Quiet), 1.6, Qt::SolidLine, Qt::RoundCap));
    const QPointF middle = QRectF(option.rect).center();
    constexpr double arm = 4;
    painter.drawLine(middle + QPointF(-arm, -arm), middle + QPointF(arm, arm));
    painter.drawLine(middle + QPointF(-arm, arm), middle + QPointF(arm, -arm));
    painter.restore();
}

void HostPanels::chevron(QPainter &painter, const QRect &rect, bool enabled, bool up)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color(enabled ? Role::Quiet : Role::Disabled), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF middle = QRectF(rect).center();
    const double rise = up ? -2 : 2;
    painter.drawPolyline(QPolygonF{middle + QPointF(-4, -rise), middle + QPointF(0, rise), middle + QPointF(4, -rise)});
    painter.restore();
}

void HostPanels::popup(QPainter &painter, const QRect &rect)
{
    painter.fillRect(rect, color(Role::Line));
    painter.fillRect(rect.adjusted(1, 1, -1, -1), color(Role::Surface));
}
