// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/MobileNumber.h"

#include "suite/utility/values/TextStandard.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

QString MobileNumber::plain(QStringView number)
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
    const bool isGood = digits.size() == 11 && digits.startsWith(u"09")
        && std::all_of(digits.cbegin(), digits.cend(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    return isGood ? digits : QString();
}

bool MobileNumber::isGood(QStringView number)
{
    return !plain(number).isEmpty();
}

QString MobileNumber::international(QStringView number)
{
    const QString digits = plain(number);
    return digits.isEmpty() ? digits : u"+98"_s + digits.mid(1);
}

QStringList MobileNumber::allIn(QStringView text)
{
    if (const QString only = plain(text); !only.isEmpty())
        return {only};
    // What may stand within a number, in any form of digits; a hyphen between blanks parts two.
    static const QRegularExpression between(u"[^\\d+\\- ]+|\\s-\\s|\\s{2,}"_s, QRegularExpression::UseUnicodePropertiesOption);
    QStringList numbers;
    for (const QString &part : text.toString().split(between, Qt::SkipEmptyParts)) {
        const QString number = plain(part);
        if (!number.isEmpty() && !numbers.contains(number))
            numbers.append(number);
    }
    return numbers;
}
