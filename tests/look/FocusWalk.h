// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

class QWidget;

// Goes once round the window by the Tab key, as a user without a mouse.
namespace FocusWalk {

// One sentence for each stop that looks the same with the focus and without it, that Tab does not lead on from, or that comes out of
// order: within a card the stops go from right to left and from top to bottom, and the buttons at the window's foot come last. The
// window must be the active one.
QStringList faults(QWidget &window);

}
