// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/CommandMenu.h"

#include "suite/utility/frame/ActionHindrance.h"

#include <QStyleOptionMenuItem>

void CommandMenu::initStyleOption(QStyleOptionMenuItem *option, const QAction *action) const
{
    QMenu::initStyleOption(option, action);
    if (action->isSeparator() || ActionHindrance::of(*action).isEmpty())
        return;
    option->state &= ~QStyle::State_Enabled;
    option->palette.setCurrentColorGroup(QPalette::Disabled);
}
