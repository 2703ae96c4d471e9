// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/look/WindowTable.h"

#include <functional>

class KListPage;
class KMessageDialog;
class LookOffice;
class QDialog;

// How a window of each sort comes up to be looked at, and is closed again. What is returned is an entry's show.
namespace Showing {

using Look = WindowTable::Look;
using Show = std::function<void(const Look &)>;
// Opens a window and returns when it is closed.
using Open = std::function<void()>;
// What is done in a window before its views are looked at.
using Prepare = std::function<void(QDialog &)>;

// The window as it is once it has done what it does after coming up.
void settle(QWidget &window);

// A window that its opener waits for: each page that its tabs lead to.
Show modal(const Open &open, const Prepare &prepare = {});
template <class Dialog, class... Arguments>
Show window(Arguments... arguments)
{
    return modal([=] {
        Dialog dialog(arguments...);
        dialog.exec();
    });
}
// The main window without a page.
Show startPage(LookOffice &office);
// What the search shows of what is typed, with one of the hits chosen.
Show search(LookOffice &office, const QString &typed, int steps = 0);
// A page of the main window, by the entry of the menu.
Show page(LookOffice &office, const QString &entry, const std::function<void(KListPage &)> &prepare = {});
// What a command of a list opens, on its first row.
Show command(LookOffice &office, const QString &entry, const QString &id, const Prepare &prepare = {});
Show menuEntry(LookOffice &office, const QString &entry);
// The list's editor for a new contract, with each of the types that its first page offers.
Show contractTypes(LookOffice &office, const QString &entry);
Show messageBox(KMessageDialog &dialog, const Open &open);
// Each menu of the main window.
Show menus(LookOffice &office);
// The month that a date field of that label opens, in the window of the list's command.
Show month(LookOffice &office, const QString &entry, const QString &id, const QString &label);
// The menu of a list's command.
Show commandMenu(LookOffice &office, const QString &entry, const QString &id);
// Windows that take no part in the user's work.
Show splash(bool mayGiveUp);
Show waitNotice();
Show progress();

}
