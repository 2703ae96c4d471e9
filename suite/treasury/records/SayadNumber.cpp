// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/records/SayadNumber.h"

#include "suite/utility/values/TextStandard.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QString SayadNumber::normalized(const QString &typed)
{
    QString digits = toAsciiDigits(typed);
    digits.removeIf([](QChar c) { return c.isSpace() || c == u'-' || c == u'/' || c == u'\u200c'; });
    return digits;
}

QString SayadNumber::problem(const QString &typed)
{
    const QString digits = normalized(typed);
    if (digits.isEmpty())
        return u"لطفا شناسه صیادی چک را وارد نمایید."_s;
    const bool onlyDigits = std::ranges::all_of(digits, [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (!onlyDigits || digits.size() != length)
        return u"شناسه صیادی چک باید %1 رقم باشد."_s.arg(length);
    if (digits.count(digits.front()) == length)
        return u"شناسه صیادی چک درست نیست."_s;
    return {};
}
