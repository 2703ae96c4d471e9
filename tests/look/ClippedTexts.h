// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

class QWidget;

// Finds texts that need more room than they have. A figure, a title, a caption must show whole; a free text may end in "…" where the
// pointer, resting on it, is told the whole.
namespace ClippedTexts {

// One sentence for each; the window must be on the screen.
QStringList in(const QWidget &window);

}
