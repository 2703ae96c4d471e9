// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <functional>
#include <vector>

class LookOffice;
class QWidget;

// Every window of the program, and how a user comes to it.
namespace WindowTable {

// Called with a window on the screen; the view names what of it is shown, such as its second tab, and is empty for a window that
// has one view only.
using Look = std::function<void(QWidget &window, const QString &view)>;

struct Entry
{
    const char *name; // also of its picture's file
    // Opens the window, passes each view of it, and closes it.
    std::function<void(const Look &look)> show;
};

// The office must live as long as the entries.
std::vector<Entry> all(LookOffice &office);

}
