// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

class QWidget;

// Finds what nobody can reach or read because of where it stands. One sentence for each; the window must be on the screen.
namespace Placement {

// The window, with its frame, is larger than the screen's free area or partly outside of it.
QStringList beyondScreen(const QWidget &window);
// What lies outside of what it stands in, or where its scroll area cannot scroll to; a page that scrolls sideways; the buttons
// of a window inside of what scrolls.
QStringList outOfReach(const QWidget &window);
// Neighbours that cover each other.
QStringList overlaps(const QWidget &window);

}
