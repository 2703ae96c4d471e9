// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QRect>

class QPainter;
class QStyleOption;
class QStyleOptionViewItem;
class QWidget;

// The grounds and frames that HostStyle draws: of fields, buttons, cards, bars, rows, marks.
namespace HostPanels {

// A field's ground and border by its state: typed into, read-only, disabled, with the focus.
void field(QPainter &painter, const QStyleOption &option, bool readOnly);
// One that only shows what it holds.
void quietField(QPainter &painter, const QRect &rect);
void button(QPainter &painter, const QStyleOption &option, const QWidget *widget);
void toolButton(QPainter &painter, const QStyleOption &option, const QWidget *widget);
void card(QPainter &painter, const QRect &rect);
// The ground of a widget that is marked as a card or a bar.
void marked(QPainter &painter, const QStyleOption &option, const QWidget *widget);
void checkMark(QPainter &painter, const QStyleOption &option);
void radioMark(QPainter &painter, const QStyleOption &option);
void focusRing(QPainter &painter, const QRect &rect);
// A cell's part of its row: stripe, hover, selection with its bar at the leading edge, and the line below.
void row(QPainter &painter, const QStyleOptionViewItem &option, const QWidget *view);
// What a cell has besides: a ground of its own, also in the selected row. In a list of choices, which has no rows, the selection.
void cell(QPainter &painter, const QStyleOptionViewItem &option, const QWidget *view);
// The cross that closes a tab.
void cross(QPainter &painter, const QStyleOption &option);
// A chevron that points down, or up.
void chevron(QPainter &painter, const QRect &rect, bool enabled, bool up = false);
// A menu, a tip, a drop-down's list.
void popup(QPainter &painter, const QRect &rect);

}
