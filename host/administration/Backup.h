// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class QWidget;

// Backups as the user asks for them.
namespace Backup {

// Dumps the current database into the folder, with a progress window that can be cancelled, and says where the dump is.
// Returns its path; empty when there is none: the user has been told why, unless they cancelled it.
QString takeNow(const QString &folder, QWidget *parent);
// Opens the folder of the backups with the desktop's program for folders.
void showFolder(const QString &folder, QWidget *parent);

}
