// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/CTblProperties.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

std::optional<QString> stored(const QString &section, const QString &key, int database)
{
    CTblProperties set(database);
    set.m_filter = KSql::formatted("sSection=%1 AND sKey=%2", KSql::quoted(section), KSql::quoted(key));
    set.Open(true, true, true);
    return set.IsEOF() ? std::nullopt : std::optional(set.m_sValue);
}

}

CTblProperties::CTblProperties(int database)
    : KMySQL(database)
{
}

CTblProperties::~CTblProperties() = default;

QString CTblProperties::GetTableName() const
{
    return u"Properties"_s;
}

void CTblProperties::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Text(u"sSection", m_sSection, u"بخش");
    RFX_Text(u"sKey", m_sKey, u"کلید");
    RFX_Text(u"sValue", m_sValue, u"مقدار");
}

double CTblProperties::DBReadSetting(const QString &section, const QString &key, double defaultValue, int database)
{
    bool isNumber = false;
    const double value = stored(section, key, database).value_or(QString()).toDouble(&isNumber);
    return isNumber ? value : defaultValue;
}

QString CTblProperties::DBReadSetting(const QString &section, const QString &key, const QString &defaultValue, int database)
{
    return stored(section, key, database).value_or(defaultValue);
}

int CTblProperties::DBReadSettingInt(const QString &section, const QString &key, int defaultValue, int database)
{
    bool isNumber = false;
    const int value = stored(section, key, database).value_or(QString()).toInt(&isNumber);
    return isNumber ? value : defaultValue;
}

void CTblProperties::DBWriteSetting(const QString &section, const QString &key, double value, int database)
{
    // 17 significant digits bring every double back as it was.
    DBWriteSetting(section, key, QString::number(value, 'g', 17), database);
}

void CTblProperties::DBWriteSetting(const QString &section, const QString &key, const QString &value, int database)
{
    KConnection::forThread(database).run(writing(section, key, value));
}

// One statement, so that two users who store the same key for the first time do not collide.
KSql CTblProperties::writing(const QString &section, const QString &key, const QString &value)
{
    return KSql::formatted("INSERT INTO Properties(sSection,sKey,sValue) VALUES(%1,%2,%3) ON DUPLICATE KEY UPDATE sValue=VALUES(sValue)",
                           KSql::quoted(section), KSql::quoted(key), KSql::quoted(value));
}

void CTblProperties::DBWriteSettingInt(const QString &section, const QString &key, int value, int database)
{
    DBWriteSetting(section, key, QString::number(value), database);
}

QHash<QString, QString> CTblProperties::DBReadSection(const QString &section, int database)
{
    CTblProperties set(database);
    set.m_filter = "sSection=" + KSql::quoted(section);
    QHash<QString, QString> values;
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        values.insert(set.m_sKey, set.m_sValue);
    return values;
}
