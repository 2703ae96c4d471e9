// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/fields/MissingItems.h"

#include "suite/utility/values/TextStandard.h"

#include <QSet>

QStringList missingItems(const QStringList &all, const QString &chosen, const QString &separator)
{
    QSet<QString> there;
    // A text typed by hand may lack the blank of the separator.
    for (const QString &name : chosen.split(separator.trimmed(), Qt::SkipEmptyParts))
        there.insert(searchKey(name));
    QStringList missing;
    for (const QString &name : all) {
        if (!there.contains(searchKey(name)))
            missing.append(name);
    }
    return missing;
}
