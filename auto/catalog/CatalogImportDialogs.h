// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class QWidget;

// The questions and messages of the import of catalog entries.
namespace CatalogImportDialogs {

// Of the starting set that comes with the program.
QString startingSetFolder();

// Lets the user choose a file, starting in startingSetFolder; empty when nothing was chosen.
QString askForFile(QWidget *parent);

// Reads the file, shows what is wrong with it or how much of it is new, and adds that if the user agrees. True when
// something was added. When it throws CMySQLException, nothing was added.
bool importFile(const QString &path, QWidget *parent);

}
