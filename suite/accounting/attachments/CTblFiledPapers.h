// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"

// The versions of a record's paper that were filed as they were printed, each with what the record said then. The paper itself is one of
// the record's attached files; who deletes that one leaves the version.
class TZACCOUNTINGDATA_EXPORT CTblFiledPapers : public KMySQL, private KLiveCount<CTblFiledPapers>
{
public:
    using KLiveCount<CTblFiledPapers>::liveCount;

    explicit CTblFiledPapers(int database = 0);
    ~CTblFiledPapers() override;
    QString GetTableName() const override;

    struct Filing
    {
        int kind = 0; // RecordKinds.h
        qint32 recordID = 0;
        int version = 0; // one more than that of the newest, by a caller that holds the record
        QString valuesHash;
        QByteArray values; // JSON
        QString name;      // of the file
        QByteArray file;
    };
    // One of the record's attached files, and its row. Joins the caller's transaction, without which a paper could be half filed. Returns
    // the key of the file. Throws as CTblFileDocs::addContent.
    static qint32 add(const Filing &filing, int database = 0);
    // Reads the newest version of that record; false where none was filed.
    bool openNewest(int kind, qint32 recordID);
    // As the hashes stand in a row.
    static QString sha256(const QByteArray &bytes);

    // Joins the caller's transaction.
    static void deleteOf(int kind, qint32 recordID, int database = 0);

    qint32 m_iID = 0;
    qint32 m_iTable = 0; // RecordKinds.h
    qint32 m_iRecordID = 0;
    qint32 m_iVersion = 0; // from 1
    qint32 m_iFileDocID = 0;
    QString m_sValuesHash; // SHA-256 of what the record said, as the paper itself shows it
    QString m_sValues;     // what it said, as JSON
    QString m_sFileHash;   // SHA-256 of the file
    qint32 m_iUserID = 0;
    QDateTime m_dateCreate;

protected:
    void DoFieldExchange() override;
};
