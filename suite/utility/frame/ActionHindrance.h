// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include "suite/utility/TzUtilityExport.h"

class QAction;

// Why the user may not run a menu entry. Such an entry looks disabled in the menu (CommandMenu) and on the start page and says why
// in its tip; it stays one that can be chosen, and then tells the reason in a message.
namespace ActionHindrance {

// An empty reason takes the hindrance away, and tip is shown again.
TZUTILITY_EXPORT void set(QAction &action, const QString &reason, const QString &tip);
// Empty: the user may.
TZUTILITY_EXPORT QString of(const QAction &action);

}
