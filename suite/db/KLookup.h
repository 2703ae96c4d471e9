// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/TzDBExport.h"

#include <QHash>
#include <QList>
#include <QString>

// Names behind keys, fetched for a whole list at once: one statement for any number of rows.
namespace KLookup {

// Display text per key; keys that are 0 or not in the table are left out. Keys may repeat.
TZDB_EXPORT QHash<int, QString> names(const QString &table, const QString &keyColumn, const QString &displayColumn,
                                      const QList<int> &keys, int database = 0);
// One name; empty when the key is not there.
TZDB_EXPORT QString name(const QString &table, const QString &keyColumn, const QString &displayColumn, int key,
                         int database = 0);

}
