// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/catalog/CatalogLevel.h"

#include <QDateTime>
#include <QString>
#include <QVector>

#include <memory>
#include <optional>

class KMySQL;
class KSql;

// Reads and writes the entries of the car catalog, level by level. Errors are CMySQLExceptions.
namespace CatalogEntries {

struct Entry
{
    int key = 0;
    QString name;
};

// Sorted by name; see CatalogFilter::entries for parent and namePart.
QVector<Entry> list(CatalogLevel level, int parent, const QString &namePart);
// That all of them will be asked (KReadAhead).
void expectList(CatalogLevel level, int parent);

// A record of the level's table.
std::unique_ptr<KMySQL> records(CatalogLevel level);
// The name of the lock under which entries are added and renamed (NamedLock).
QString lockName();
// Sets what a new entry holds besides its name; created: the server's date and time.
void fillNew(KMySQL &entry, CatalogLevel level, int parent, int userID, const QDateTime &created);
// The entries of that name below the parent, as a condition.
KSql sameNameBelow(CatalogLevel level, int parent, const QString &name);

// Returns the new key; created is the server's date and time. A brand whose name already exists is refused:
// CMySQLException::Category::DuplicateKey.
int add(CatalogLevel level, int parent, const QString &name, int userID, const QDateTime &created);
// Nothing when the entry is gone.
std::optional<QString> name(CatalogLevel level, int key);

// Whether any car record refers to the entry.
bool isUsed(CatalogLevel level, int key);
// The entry as a user is asked about it, for remove; null when it is gone.
std::unique_ptr<KMySQL> record(CatalogLevel level, int key);
// Deletes the entry with what its record class deletes along with it, in one unit of work. False, with nothing deleted, when a car
// record refers to it by now. Throws RowDeleting::Refused.
[[nodiscard]] bool remove(CatalogLevel level, KMySQL &asked);

// The name editor's check, which looks among the models whatever level is edited; see CatalogFilter::sameName.
bool isNameTaken(int key, const QString &name, int parent);

}
