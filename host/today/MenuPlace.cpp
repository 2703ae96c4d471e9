// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/MenuPlace.h"

#include <QMenu>

void openMenuBelow(QMenu &menu, const QWidget &button)
{
    const QRect below(button.mapToGlobal(QPoint(0, button.height())), button.size());
    const int left = button.isRightToLeft() ? below.right() + 1 - menu.sizeHint().width() : below.left();
    menu.popup(QPoint(left, below.top()));
}
