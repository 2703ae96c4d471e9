// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QPoint>
#include <QString>

class QWidget;

// What of a window is on the screen, as the checks of its look go through it.
namespace WindowParts {

// The visible widgets within the window, each after the one that it stands in. A control counts as one: what it is made of (the arrows
// of a spin box, the cells of a list) is not among them.
QList<QWidget *> of(const QWidget &window);

// How a fault names the widget: its class, and what a user would call it.
QString name(const QWidget &widget);

// Digits with what stands between them, such as an amount, a date or a telephone number: cut, it would read as another.
bool isFigure(const QString &text);
// A part of the text is enough to know it by.
QString shortened(const QString &text);

// What the widget tells when the pointer rests there; empty when it tells nothing.
QString tipAt(QWidget &widget, const QPoint &position);

}
