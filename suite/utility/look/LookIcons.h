// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"
#include "suite/utility/look/HostColors.h"

#include <QIcon>
#include <QString>

// The pictures of the program: one set, whose two strokes are drawn in the colours of the look in use, also after it changes.
// A path is that of the resource, such as ":/icons/new.svg"; an empty one makes no icon.
namespace LookIcons {

TZUTILITY_EXPORT QIcon icon(const QString &path);
// Both strokes in one colour: on the primary button, in a menu's last command.
TZUTILITY_EXPORT QIcon icon(const QString &path, HostColors::Role ink);
// The icon in another ink, where it is one of these; any other comes back as it is.
TZUTILITY_EXPORT QIcon inked(const QIcon &icon, HostColors::Role ink);

}
