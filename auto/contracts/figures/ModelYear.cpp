// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/figures/ModelYear.h"

#include "suite/utility/values/TextStandard.h"

#include <algorithm>

bool isModelYear(QStringView text)
{
    const QString digits = toAsciiDigits(text.trimmed().toString());
    // With a sign or a group separator it is not a year.
    if (!std::ranges::all_of(digits, [](QChar character) { return character >= u'0' && character <= u'9'; }))
        return false;
    bool isNumber = false;
    const int year = digits.toInt(&isNumber);
    return isNumber && year >= 1000 && year < 3001;
}
