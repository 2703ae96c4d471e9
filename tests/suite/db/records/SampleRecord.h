// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/db/connection/KTableSchema.h"

#include <thread>

using namespace Qt::StringLiterals;

// A small table with a column of every kind, for the tests of the record-set base.
class SampleRecord : public KMySQL, public KLiveCount<SampleRecord>
{
public:
    using KMySQL::KMySQL;

    qint32 m_iID = 0;
    QString m_sName;
    QString m_sNote;
    QDateTime m_date;
    double m_dAmount = 0;
    qint32 m_bFlag = 0;
    KLongBinary m_oPicture;
    qint32 m_iUserID = 0;

    QString GetTableName() const override { return u"Samples"_s; }

    static void createTable()
    {
        CTblTemp temp;
        temp.Open(false, false, true);
        temp.ExecuteQuery("DROP TABLE IF EXISTS Samples", true, true);
        temp.ExecuteQuery("CREATE TABLE Samples(iID INT NOT NULL AUTO_INCREMENT,sName VARCHAR(10) DEFAULT NULL,"
                          "sNote VARCHAR(255) DEFAULT NULL,date DATETIME DEFAULT NULL,dAmount DOUBLE DEFAULT 0,"
                          "bFlag TINYINT DEFAULT 0,oPicture LONGBLOB DEFAULT NULL,iUserID INT DEFAULT 0,"
                          "PRIMARY KEY (iID),UNIQUE INDEX sName (sName))ENGINE = InnoDB CHARSET=utf8",
                          true, true);
        KTableSchema::forgetAll();
    }

protected:
    void DoFieldExchange() override
    {
        RFX_Long(u"iID", m_iID, u"");
        RFX_Text(u"sName", m_sName, u"نام");
        RFX_Text(u"sNote", m_sNote, u"یادداشت");
        RFX_Date(u"date", m_date, u"تاريخ");
        RFX_Double(u"dAmount", m_dAmount, u"مبلغ");
        RFX_Bool(u"bFlag", m_bFlag, u"پرچم");
        // So that a key of this very table can stand in it.
        namesFrom(u"bFlag", u"Samples", u"iID", u"sName");
        RFX_LongBlob(u"oPicture", m_oPicture, u"");
        RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    }
};

inline qint32 addSample(const QString &name, double amount = 0)
{
    SampleRecord record;
    record.Open(true, false, true);
    record.AddNew();
    record.m_sName = name;
    record.m_dAmount = amount;
    record.Update(true);
    return static_cast<qint32>(record.GetLastInsertedID());
}

// Of the calling thread's connection.
inline int connectionId()
{
    CTblTemp temp;
    temp.Open(false, false, true);
    temp.ExecuteQuery("SELECT CONNECTION_ID()", true, true);
    return temp.GetLongFieldValue(0);
}

// From another connection; the client learns of it with its next statement.
inline void killConnection(int id)
{
    std::thread([id] {
        CTblTemp killer;
        killer.Open(false, false, true);
        killer.FormatAndExecuteQuery("KILL %d", id);
    }).join();
}
