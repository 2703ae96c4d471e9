// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

namespace DumpFiles {

// The dumps of the database in the folder, newest first, by their names.
QStringList in(const QString &folder, const QString &database);

}
