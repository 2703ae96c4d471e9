// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KNameSource.h"
#include "suite/db/TzDBExport.h"

#include <QHash>
#include <QList>
#include <QString>

class KMySQL;

// Names behind keys, fetched for a whole list at once: one statement for any number of rows. Where the names of a column
// stand is said once, by the record that has the column.
namespace KLookup {

using Source = KNameSource;

// Display text per key; keys that are 0 or not in the table are left out. Keys may repeat.
TZDB_EXPORT QHash<int, QString> names(const Source &source, const QList<int> &keys, int database = 0);
// That they will be asked (KReadAhead).
TZDB_EXPORT void expectNames(const Source &source, const QList<int> &keys, int database = 0);
// One name; empty when the key is not there.
TZDB_EXPORT QString name(const Source &source, int key, int database = 0);

// The same for the keys of a record's column, in the record's database. The column has a lookup or namesFrom; one without
// is an error of the program and asserts. The record need not be open.
TZDB_EXPORT QHash<int, QString> names(KMySQL &record, QStringView column, const QList<int> &keys);
TZDB_EXPORT void expectNames(KMySQL &record, QStringView column, const QList<int> &keys);
TZDB_EXPORT QString name(KMySQL &record, QStringView column, int key);
// The name behind the key that the record's member holds now.
TZDB_EXPORT QString name(KMySQL &record, QStringView column);

// The same where no object of the record class is at hand.
template <class Record>
QHash<int, QString> names(QStringView column, const QList<int> &keys, int database = 0)
{
    Record record(database);
    return names(record, column, keys);
}

template <class Record>
QString name(QStringView column, int key, int database = 0)
{
    Record record(database);
    return name(record, column, key);
}

}
