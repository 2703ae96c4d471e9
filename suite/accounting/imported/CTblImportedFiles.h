// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"

#include <optional>

// The files that were imported, known by what is in them, so that nobody imports one twice unawares.
class TZACCOUNTINGDATA_EXPORT CTblImportedFiles : public KMySQL, private KLiveCount<CTblImportedFiles>
{
public:
    using KLiveCount<CTblImportedFiles>::liveCount;

    struct Entry
    {
        QString file; // its name, without a folder
        int rows = 0; // that were written
        QDateTime when;
        qint32 userID = 0;
        qint32 key = 0;
        int takenBack = 0; // of the rows
    };

    explicit CTblImportedFiles(int database = 0);
    ~CTblImportedFiles() override;
    QString GetTableName() const override;

    // The last import of that content; nothing when there was none, and when it was taken back since. Throws CMySQLException.
    static std::optional<Entry> last(const QString &kind, const QString &hash, int database = 0);
    // All of the kind, the newest first.
    static QList<Entry> entries(const QString &kind, int database = 0);
    // Within the transaction that imports. records: the keys of what was written.
    static void note(const QString &kind, const QString &hash, const QString &file, int rows, const QList<qint32> &records, int database = 0);
    // Within the transaction that takes as many of its records back; this one holds the row.
    void noteReturn(int records);

    qint32 m_iID = 0;
    QString m_sKind;
    QString m_sHash; // SHA-256, in hexadecimal digits
    QString m_sFile;
    qint32 m_iRows = 0;
    qint32 m_iUserID = 0;
    QDateTime m_dateCreate;
    qint32 m_iTakenBack = 0; // of its records
    qint32 m_iReturnUserID = 0;
    QDateTime m_dateReturn; // of the last ones

private:
    Entry entry() const { return {m_sFile, m_iRows, m_dateCreate, m_iUserID, m_iID, m_iTakenBack}; }

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};
