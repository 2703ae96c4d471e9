// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/DocumentParts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

PartMark PartMark::of(const QString &fieldName)
{
    const auto starts = [&](const QString &with) { return fieldName.startsWith(with, Qt::CaseInsensitive); };
    const auto namesBehind = [&](qsizetype length) { return fieldName.mid(length).split(u'_', Qt::SkipEmptyParts); };
    if (fieldName.compare(u"EndIf"_s, Qt::CaseInsensitive) == 0)
        return {End, {}};
    if (starts(u"IfNot_"_s))
        return {IfNot, namesBehind(6)};
    if (starts(u"If_"_s))
        return {If, namesBehind(3)};
    return {};
}

bool PartMark::keeps(const std::function<bool(const QString &)> &says) const
{
    const bool any = names.isEmpty() || !says || std::ranges::any_of(names, says);
    return kind == IfNot ? !any : any;
}

int pictureHeight(const QString &fieldName, const QString &pictureName)
{
    constexpr int leastHeight = 3;
    constexpr int mostHeight = 250;
    if (fieldName.compare(pictureName, Qt::CaseInsensitive) == 0)
        return 0;
    if (!fieldName.startsWith(pictureName + u'_', Qt::CaseInsensitive))
        return -1;
    bool isNumber = false;
    const int height = fieldName.mid(pictureName.size() + 1).toInt(&isNumber);
    return isNumber ? std::clamp(height, leastHeight, mostHeight) : -1;
}
