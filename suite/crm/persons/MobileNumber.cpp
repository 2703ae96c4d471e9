// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/MobileNumber.h"

#include "suite/utility/values/TextStandard.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

bool MobileNumber::isGood(QStringView number)
{
    static const QStringList countryPrefixes{u"+98"_s, u"0098"_s, u"98"_s};
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
