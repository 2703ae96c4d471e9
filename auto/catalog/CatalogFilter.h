// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/catalog/CatalogLevel.h"

#include "suite/sql/KSql.h"

#include <QString>

// Conditions of the catalog's lists, for a record set's m_filter.
namespace CatalogFilter {

// The entries of a level below the parent (a brand's models, a model's classes; brands have none), and of those the ones
// whose name contains namePart. Empty: all.
KSql entries(CatalogLevel level, int parent, const QString &namePart);

// Whether a name is taken, as the name editor asks it: of another row than key when one is edited (0: none is). The
// parent is compared with the row's own key: with a parent that is no key of a model of that name, nothing is ever found.
KSql sameName(int key, const QString &name, int parent);

}
