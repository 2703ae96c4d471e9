// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QMenu>

#include "suite/utility/TzUtilityExport.h"

// A menu of commands, which shows entries that the user may not run (ActionHindrance) as if they were disabled.
class TZUTILITY_EXPORT CommandMenu final : public QMenu
{
    Q_OBJECT

public:
    using QMenu::QMenu;

protected:
    void initStyleOption(QStyleOptionMenuItem *option, const QAction *action) const override;
};
