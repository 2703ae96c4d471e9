// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/Fields.h"

#include <utility>

Fields::Fields(QStringList names)
    : m_names(std::move(names))
{
}

int Fields::GetCount() const
{
    return static_cast<int>(m_names.size());
}

QString Fields::GetName(int position) const
{
    return m_names.value(position);
}

bool Fields::Contains(const QString &name) const
{
    return indexOfName(m_names, name) >= 0;
}

QStringList Fields::GetNames() const
{
    return m_names;
}

int Fields::indexOfName(const QStringList &names, const QString &fieldName)
{
    const int exact = static_cast<int>(names.indexOf(fieldName));
    if (exact >= 0)
        return exact;
    int found = -1;
    for (int i = 0; i < names.size(); ++i) {
        if (names.at(i).compare(fieldName, Qt::CaseInsensitive) != 0)
            continue;
        if (found >= 0 && names.at(found) != names.at(i))
            return -1; // two names that case alone tells apart: neither is surely meant
        if (found < 0)
            found = i;
    }
    return found;
}
