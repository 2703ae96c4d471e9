// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class QWidget;

// What the import of catalog entries asks and tells the user.
namespace CatalogImportDialogs {

// Of the starting set that comes with the program.
QString startingSetFolder();

// Lets the user choose a file, beginning in the folder of ours; empty when nothing was chosen.
QString askForFile(QWidget *parent);

// Reads the file, tells what is wrong with it or how much of it is new, and adds that when the user wants it. True when
// something was added. Throws CMySQLException: nothing was added.
bool importFile(const QString &path, QWidget *parent);

}
