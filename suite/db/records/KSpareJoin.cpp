// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/records/KSpareJoin.h"

#include <algorithm>
#include <cctype>

namespace {

bool isOfName(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '.';
}

// As a name, not as the end of another.
bool holdsName(const QByteArray &text, const QByteArray &name)
{
    for (qsizetype at = text.indexOf(name); at >= 0; at = text.indexOf(name, at + 1)) {
        if (at == 0 || !isOfName(text.at(at - 1)))
            return true;
    }
    return false;
}

}

bool KSpareJoin::isSpared(const KSql &filter, const KSql &order) const
{
    if (rest.isEmpty() || !filter.utf8().endsWith(grouping.utf8()))
        return false;
    return std::ranges::none_of(names, [&](const QByteArray &name) { return holdsName(filter.utf8(), name) || holdsName(order.utf8(), name); });
}
