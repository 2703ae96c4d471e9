// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CatalogFilter.h"
#include "suite/accounting/lists/FilterClauses.h"

KSql CatalogFilter::entries(CatalogLevel level, int parent, const QString &namePart)
{
    const KSql named = namePart.isEmpty() ? KSql() : " " + FilterClauses::contains("sName", namePart);
    if (level == CatalogLevel::Brand)
        return named;
    const KSql condition = (level == CatalogLevel::Model ? KSql("iClassID=") : KSql("iBrandID=")) + KSql::number(parent);
    return named.isEmpty() ? condition : condition + " AND" + named;
}

KSql CatalogFilter::sameName(int key, const QString &name, int parent)
{
    const KSql other = key > 0 ? KSql::formatted("iID<>%1 AND ", key) : KSql();
    return other + KSql::formatted("sName=%1 AND iID=%2", KSql::quoted(name), parent);
}
