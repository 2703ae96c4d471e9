// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

namespace DumpFiles {

// The backups of the database in the folder, newest first, by their names: <database>-<yyyyMMdd-HHmmss>[-n].sql, also compressed and
// encrypted. Links are none.
QStringList in(const QString &folder, const QString &database);

}
