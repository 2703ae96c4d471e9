// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CatalogFilter.h"

using namespace Qt::StringLiterals;

QString CatalogFilter::entries(CatalogLevel level, int parent, const QString &namePart)
{
    // A typed % is no placeholder: the text is joined, never formatted.
    QString named = namePart.isEmpty() ? QString() : u" sName LIKE '%"_s + namePart + u"%'"_s;
    if (level == CatalogLevel::Brand)
        return named;
    const char *below = level == CatalogLevel::Model ? "iClassID=%d" : "iBrandID=%d";
    const QString condition = QString::asprintf(below, parent);
    return named.isEmpty() ? condition : condition + u" AND"_s + named;
}

QString CatalogFilter::sameName(int key, const QByteArray &quotedName, int parent)
{
    const QString other = key > 0 ? QString::asprintf("iID<>%d AND ", key) : QString();
    return other + u"sName="_s + QString::fromUtf8(quotedName) + u" AND iID="_s + QString::number(parent);
}
