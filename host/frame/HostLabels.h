// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QPainter;
class QStyle;
class QStyleOptionButton;
class QStyleOptionGroupBox;
class QStyleOptionHeader;
class QStyleOptionMenuItem;
class QStyleOptionTab;
class QWidget;
class QRect;

// The texts and icons that HostStyle draws on its grounds.
namespace HostLabels {

// Icon and text side by side in the middle of the button, the icon on the leading side.
void button(const QStyle &style, const QStyleOptionButton &option, QPainter &painter, const QWidget *widget);
void headerSection(const QStyleOptionHeader &option, QPainter &painter);
void headerLabel(const QStyleOptionHeader &option, QPainter &painter);
// A work tab: text alone or behind its icon, underlined while it is the current one.
void tabShape(const QStyleOptionTab &option, QPainter &painter);
void tabLabel(const QStyle &style, const QStyleOptionTab &option, QPainter &painter, const QWidget *widget);
void menuItem(const QStyle &style, const QStyleOptionMenuItem &option, QPainter &painter, const QWidget *widget);
void menuBarItem(const QStyle &style, const QStyleOptionMenuItem &option, QPainter &painter, const QWidget *widget);
void groupTitle(const QStyle &style, const QStyleOptionGroupBox &option, const QRect &line, QPainter &painter);

}
