// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/catalog/CatalogImport.h"

// Brings entries into the catalog's tables. Errors are CMySQLExceptions; nothing is kept then.
namespace CatalogImporter {

// What the tables hold now.
CatalogImport::Known known();

// Adds those of the entries that the catalog does not have when it runs, all in one unit of work, in the name of the user.
// Returns what was added.
CatalogImport::Plan add(const QVector<CatalogImport::Entry> &entries, int userID);

}
