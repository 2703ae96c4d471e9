// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/fields/ParameterNumber.h"

#include "suite/utility/values/TextStandard.h"

#include <QRegularExpression>

std::optional<int> parameterNumber(const QString &value)
{
    static const QRegularExpression digits(QStringLiteral("[0-9]+"));
    const QRegularExpressionMatch match = digits.match(toAsciiDigits(value));
    bool fits = false;
    const int number = match.captured().toInt(&fits);
    return fits ? std::optional(number) : std::nullopt;
}
