// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/CTblValues.h"

using namespace Qt::StringLiterals;

CTblValues::CTblValues(QString kind, const QList<Field> &fields, int database)
    : KMySQL(database)
    , m_kind(std::move(kind))
{
    for (const Field &field : fields)
        m_entries.push_back({field, {}});
}

CTblValues::~CTblValues() = default;

QString CTblValues::text(const QString &name)
{
    return value(name).toString();
}

void CTblValues::setText(const QString &name, const QString &text)
{
    setValue(name, text);
}

QStringList CTblValues::names()
{
    QStringList names;
    for (const Entry &entry : m_entries)
        names.append(entry.field.name);
    return names;
}

void CTblValues::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    for (Entry &entry : m_entries)
        RFX_Text(entry.field.name, entry.text, entry.field.caption);
}
