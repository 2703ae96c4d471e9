// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/accounting/TzAccountingDataExport.h"

#include <QHash>

// Settings that all users of the database share: a value per section and key. Both are compared letter by letter, case
// included.
class TZACCOUNTINGDATA_EXPORT CTblProperties : public KMySQL, private KLiveCount<CTblProperties>
{
public:
    using KLiveCount<CTblProperties>::liveCount;

    explicit CTblProperties(int database = 0);
    ~CTblProperties() override;
    QString GetTableName() const override;

    // The stored value, or the default when there is none or it is not of that kind.
    static double DBReadSetting(const QString &section, const QString &key, double defaultValue, int database = 0);
    static QString DBReadSetting(const QString &section, const QString &key, const QString &defaultValue, int database = 0);
    static int DBReadSettingInt(const QString &section, const QString &key, int defaultValue, int database = 0);
    static void DBWriteSetting(const QString &section, const QString &key, double value, int database = 0);
    static void DBWriteSetting(const QString &section, const QString &key, const QString &value, int database = 0);
    // The statement of DBWriteSetting.
    static KSql writing(const QString &section, const QString &key, const QString &value);
    static void DBWriteSettingInt(const QString &section, const QString &key, int value, int database = 0);
    // All keys of a section with their values, in one statement.
    static QHash<QString, QString> DBReadSection(const QString &section, int database = 0);

    qint32 m_iID = 0;
    QString m_sSection;
    QString m_sKey;
    QString m_sValue;

protected:
    void DoFieldExchange() override;
};
