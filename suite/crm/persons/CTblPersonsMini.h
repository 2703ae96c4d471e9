// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/crm/TzCRMDataExport.h"

#include <QHash>
#include <QList>

// Persons as lists need them: key, code and shown name.
class TZCRMDATA_EXPORT CTblPersonsMini : public KMySQL, private KLiveCount<CTblPersonsMini>
{
public:
    using KLiveCount<CTblPersonsMini>::liveCount;

    explicit CTblPersonsMini(int database = 0);
    ~CTblPersonsMini() override;
    QString GetTableName() const override;

    // Shown name of the person with that key; empty when there is none.
    static QString GetName(int id, int database = 0);
    // Shown names of many persons in one statement; keys that are 0 or of nobody are left out.
    static QHash<int, QString> GetNames(const QList<int> &ids, int database = 0);

    qint32 m_iID = 0;
    qint32 m_iCode = 0;
    QString m_sName2;

protected:
    void DoFieldExchange() override;
};
