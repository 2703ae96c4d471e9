// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QVector>

class KDialogTabPage;
class QMenuBar;

// The keys of the program and what they do, for the window that shows them.
namespace KeyList {

struct Entry
{
    QString group;
    QString keys; // as they are read: "Ctrl+1"
    QString work;
};

// Of the entries of the menus, in their order.
QVector<Entry> ofMenus(const QMenuBar &bar);
// Of the commands of a page that the user has on it now: as buttons or in a menu.
QVector<Entry> ofPage(const KDialogTabPage &page);
// Of the work area, the lists, the editors and their fields: what every one of them has in common.
QVector<Entry> everywhere();

}
