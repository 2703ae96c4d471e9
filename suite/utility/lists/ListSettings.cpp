// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/ListSettings.h"

#include "suite/utility/values/KSettings.h"

using namespace Qt::StringLiterals;

QString ListSettings::usersSection() const
{
    return m_section + u"\\Users\\"_s + m_user;
}

// An empty text of the user's own goes before what the section has: so a layout is reset.
QString ListSettings::read(const QString &key) const
{
    if (!isKept())
        return {};
    const QString shared = ReadSetting(m_section, key, QString());
    return m_user.isEmpty() ? shared : ReadSetting(usersSection(), key, shared);
}

void ListSettings::write(const QString &key, const QString &value) const
{
    if (isKept())
        WriteSetting(m_user.isEmpty() ? m_section : usersSection(), key, value);
}
