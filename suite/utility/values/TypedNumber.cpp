// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/TypedNumber.h"

#include "suite/utility/values/TextStandard.h"

namespace {

bool isSign(QChar c)
{
    return c == u'-' || c == u'−';
}

bool isAsciiDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

// "1.250.000"
bool pointsPartGroups(const QString &ascii)
{
    int points = 0;
    int digits = 0;
    for (const QChar c : ascii) {
        if (isAsciiDigit(c)) {
            ++digits;
        } else if (isDecimalPoint(c)) {
            if (points > 0 ? digits != 3 : digits == 0)
                return false;
            ++points;
            digits = 0;
        }
    }
    return points > 1 && digits == 3;
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

bool isDecimalPoint(QChar c)
{
    return c == u'.' || c == u'/' || c == u'٫';
}

TypedNumber readTyped(const QString &text, int caret, const TypingRules &rules)
{
    const QString ascii = toAsciiDigits(text);
    const bool grouped = pointsPartGroups(ascii);
    TypedNumber number;
    int decimals = -1; // none seen yet
    for (qsizetype i = 0; i < ascii.size(); ++i) {
        const QChar c = ascii[i];
        const qsizetype before = number.plain.size();
        if (isAsciiDigit(c) && decimals >= rules.decimals) {
            number.cut = true;
        } else if (isAsciiDigit(c)) {
            number.plain.append(c);
            decimals += decimals >= 0 ? 1 : 0;
        } else if (isSign(c) && rules.isSigned && number.plain.isEmpty()) {
            number.plain.append(u'-');
        } else if (isDecimalPoint(c) && !grouped && decimals < 0) {
            decimals = 0;
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
