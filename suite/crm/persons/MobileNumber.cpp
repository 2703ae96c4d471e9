// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/MobileNumber.h"

#include "suite/utility/values/TextStandard.h"

#include <QStringList>

#include <algorithm>

bool MobileNumber::isGood(QStringView number)
{
    static const QStringList countryPrefixes{QStringLiteral("+98"), QStringLiteral("0098"), QStringLiteral("98")};
    QString digits = ConvertToStandard(number.toString());
    digits.removeIf([](QChar c) { return c == u' ' || c == u'-'; });
    for (const QString &prefix : countryPrefixes) {
        if (digits.startsWith(prefix)) {
            digits.replace(0, prefix.size(), u'0');
            break;
        }
    }
    return digits.size() == 11 && digits.startsWith(u"09")
        && std::all_of(digits.cbegin(), digits.cend(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}
