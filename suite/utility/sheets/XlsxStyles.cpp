// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/sheets/XlsxStyles.h"

#include <cmath>

bool XlsxStyles::isDateFormat(int builtIn)
{
    // 45 to 47 are times alone; the runs from 27 and 50 on are the dates of other languages.
    return (builtIn >= 14 && builtIn <= 17) || builtIn == 22 || (builtIn >= 27 && builtIn <= 36) || (builtIn >= 50 && builtIn <= 58);
}

bool XlsxStyles::isDateFormat(const QString &code)
{
    bool quoted = false;
    bool bracketed = false;
    bool hasDay = false;
    for (qsizetype i = 0; i < code.size(); ++i) {
        const QChar c = code.at(i).toLower();
        if (c == u'"' && !bracketed)
            quoted = !quoted;
        else if (quoted)
            continue;
        else if (c == u'[')
            bracketed = true;
        else if (c == u']')
            bracketed = false;
        else if (c == u'\\' || c == u'_' || c == u'*')
            ++i;
        else if (!bracketed && (c == u'y' || c == u'd'))
            hasDay = true;
    }
    return hasDay;
}

QDate XlsxStyles::dateOf(double days, bool from1904)
{
    constexpr double lastDay = 2'958'465; // 9999-12-31
    if (!(days >= 1) || days > lastDay)
        return {};
    const auto whole = static_cast<qint64>(std::floor(days));
    if (from1904)
        return QDate(1904, 1, 1).addDays(whole);
    // The count knows a 29 February 1900, which was none.
    return QDate(1899, 12, 31).addDays(whole > 60 ? whole - 1 : whole);
}
