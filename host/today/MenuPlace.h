// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QMenu;
class QWidget;

// Opens a menu below the button that it belongs to, from its leading edge.
void openMenuBelow(QMenu &menu, const QWidget &button);
