// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/look/LookSizes.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>

#include <cmath>

int LookSizes::scaled(int pixels)
{
    constexpr double usualPoints = 10;
    const double points = QApplication::font().pointSizeF();
    return points <= usualPoints ? pixels : int(std::lround(pixels * points / usualPoints));
}

void LookSizes::keepOnScreen(QWidget *window)
{
    const QRect free = window->screen()->availableGeometry();
    const QSize frame = window->frameGeometry().size() - window->size();
    const QSize room = free.size() - frame;
    // Before it is shown a window's frame is not known; the window manager keeps to the screen then.
    if (window->width() > room.width() || window->height() > room.height())
        window->resize(window->size().boundedTo(room));
    QRect outer = window->frameGeometry();
    if (free.contains(outer))
        return;
    outer.moveRight(qMin(outer.right(), free.right()));
    outer.moveBottom(qMin(outer.bottom(), free.bottom()));
    outer.moveLeft(qMax(outer.left(), free.left()));
    outer.moveTop(qMax(outer.top(), free.top()));
    window->move(outer.topLeft());
}
