// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/messages/MessageWords.h"

#include "suite/crm/messages/SmsParts.h"

using namespace Qt::StringLiterals;

QString MessageWords::size(const QString &text)
{
    const SmsParts parts = SmsParts::of(text);
    if (parts.parts == 0)
        return u"متن خالی است"_s;
    return u"%1 حرف، %2 پیامک، جا برای %3 حرف دیگر"_s.arg(parts.letters).arg(parts.parts).arg(parts.room);
}

QString MessageWords::unknownField(const MessageFilling::Wrong &wrong)
{
    return u"سطر %1: «%2» از فیلدها نیست"_s.arg(wrong.line).arg(wrong.text);
}
