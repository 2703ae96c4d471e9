// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/ChangedLines.h"

namespace {

QStringList without(QStringList lines, const QStringList &others)
{
    for (const QString &other : others)
        lines.removeOne(other);
    return lines;
}

QVariant textOf(const QStringList &lines)
{
    return lines.isEmpty() ? QVariant() : QVariant(lines.join(u'\n'));
}

}

std::optional<KChangedValue> ChangedLines::between(const QString &column, const QStringList &before, const QStringList &after)
{
    const QStringList gone = without(before, after);
    const QStringList come = without(after, before);
    if (gone.isEmpty() && come.isEmpty())
        return std::nullopt;
    return KChangedValue{column, textOf(gone), textOf(come)};
}
