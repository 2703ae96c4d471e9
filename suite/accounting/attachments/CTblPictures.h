// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/db/connection/KLongBinary.h"
#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"

// The pictures of records besides the one that a record holds itself (RecordPictures). A row's picture is never changed: another picture is
// another row.
class TZACCOUNTINGDATA_EXPORT CTblPictures : public KMySQL, private KLiveCount<CTblPictures>
{
public:
    using KLiveCount<CTblPictures>::liveCount;

    explicit CTblPictures(int database = 0);
    ~CTblPictures() override;
    QString GetTableName() const override;

    qint32 m_iID = 0;
    qint32 m_iTable = 0; // RecordKinds.h
    qint32 m_iRecordID = 0;
    qint32 m_iOrder = 0; // from 1
    QString m_sName;     // of the file that it came from; empty where it had none
    KLongBinary m_oPicture;
    qint32 m_iUserID = 0;
    QDateTime m_dateCreate;

protected:
    void DoFieldExchange() override;
};
