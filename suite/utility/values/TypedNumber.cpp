// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/TypedNumber.h"

#include <algorithm>

#include "suite/utility/values/TextStandard.h"

namespace {

bool isPoint(QChar c)
{
    return c == u'.' || c == u'/' || c == u'٫';
}

bool isSign(QChar c)
{
    return c == u'-' || c == u'−';
}

bool isAsciiDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

void dropLeadingZeros(TypedNumber &number)
{
    const int first = number.plain.startsWith(u'-') ? 1 : 0;
    while (number.plain.size() > first + 1 && number.plain[first] == u'0' && isAsciiDigit(number.plain[first + 1])) {
        number.plain.remove(first, 1);
        if (number.caret > first)
            --number.caret;
    }
    if (number.plain.size() > first && number.plain[first] == u'.') {
        number.plain.insert(first, u'0');
        ++number.caret;
    }
}

}

TypedNumber readTyped(const QString &text, int caret, const TypingRules &rules)
{
    const QString ascii = toAsciiDigits(text);
    const bool pointsPartGroups = std::count_if(ascii.begin(), ascii.end(), isPoint) > 1;
    TypedNumber number;
    int decimals = -1; // none seen yet
    for (qsizetype i = 0; i < ascii.size(); ++i) {
        const QChar c = ascii[i];
        const qsizetype before = number.plain.size();
        if (isAsciiDigit(c) && decimals < rules.decimals) {
            number.plain.append(c);
            decimals += decimals >= 0 ? 1 : 0;
        } else if (isSign(c) && rules.isSigned && number.plain.isEmpty()) {
            number.plain.append(u'-');
        } else if (isPoint(c) && !pointsPartGroups) {
            decimals = 0;
            if (rules.decimals > 0)
                number.plain.append(u'.');
        }
        if (i < caret && number.plain.size() > before)
            ++number.caret;
    }
    dropLeadingZeros(number);
    return number;
}

QString groupTyped(TypedNumber &number, bool grouped)
{
    QString text = number.plain;
    if (!grouped)
        return text;
    const qsizetype point = text.indexOf(u'.');
    const qsizetype first = text.startsWith(u'-') ? 1 : 0;
    for (qsizetype at = (point < 0 ? text.size() : point) - 3; at > first; at -= 3) {
        text.insert(at, u',');
        if (number.caret > at)
            ++number.caret;
    }
    return text;
}
