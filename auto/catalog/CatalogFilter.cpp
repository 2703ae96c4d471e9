// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CatalogFilter.h"

QString CatalogFilter::entries(CatalogLevel level, int parent, const QString &namePart)
{
    // A typed % is no placeholder: the text is joined, never formatted.
    QString named = namePart.isEmpty() ? QString() : QStringLiteral(" sName LIKE '%") + namePart + QStringLiteral("%'");
    if (level == CatalogLevel::Brand)
        return named;
    const char *below = level == CatalogLevel::Model ? "iClassID=%d" : "iBrandID=%d";
    const QString condition = QString::asprintf(below, parent);
    return named.isEmpty() ? condition : condition + QStringLiteral(" AND") + named;
}

QString CatalogFilter::sameName(int key, const QByteArray &quotedName, int parent)
{
    const QString other = key > 0 ? QString::asprintf("iID<>%d AND ", key) : QString();
    return other + QStringLiteral("sName=") + QString::fromUtf8(quotedName) + QStringLiteral(" AND iID=") + QString::number(parent);
}
