// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

class QWidget;

// Finds what leaves the grid of forms (FormGrid, CardStack). One sentence for each; the window must be on the screen.
namespace GridEdges {

// A field that does not begin where a column begins and end where one ends; a label or an amount's words that do not begin there.
QStringList fields(const QWidget &window);
// Cards of a page whose edges or columns differ.
QStringList cards(const QWidget &window);

}
