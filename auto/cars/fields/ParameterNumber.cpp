// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/fields/ParameterNumber.h"

#include "suite/utility/values/TextStandard.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

std::optional<int> parameterNumber(const QString &value)
{
    static const QRegularExpression digits(u"[0-9]+"_s);
    const QRegularExpressionMatch match = digits.match(toAsciiDigits(value));
    bool fits = false;
    const int number = match.captured().toInt(&fits);
    return fits ? std::optional(number) : std::nullopt;
}
