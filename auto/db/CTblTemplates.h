// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"

// Templates of documents that the office chose or changed, each with those that were in use before. A row's file is never changed: another
// file is another row.
class CTblTemplates : public KMySQL, private KLiveCount<CTblTemplates>
{
public:
    using KLiveCount<CTblTemplates>::liveCount;

    explicit CTblTemplates(int database = 0);
    ~CTblTemplates() override;
    QString GetTableName() const override;

    qint32 m_iID = 0;
    QString m_sKind; // what is printed from it, such as "contract.0"
    QString m_sName; // of the file
    KLongBinary m_oFile;
    QString m_sHash; // SHA-256 of the file, hexadecimal
    qint32 m_bInUse = 0;
    QString m_sDesc; // where it came from
    qint32 m_iUserID = 0;
    QDateTime m_dateCreate;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};
