// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QApplication;

// What every window of the program has in common.
namespace HostLook {

// Loads the fonts beside the program, which draw ASCII digits in Persian shape, and makes them the application's font;
// without them a Persian font of the system. Also loads Qt's own texts in Persian where installed, and the icon.
void apply(QApplication &application);

}
