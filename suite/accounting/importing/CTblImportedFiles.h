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
    };

    explicit CTblImportedFiles(int database = 0);
    ~CTblImportedFiles() override;
    QString GetTableName() const override;

    // The last import of that content; nothing when there was none. Throws CMySQLException.
    static std::optional<Entry> last(const QString &kind, const QString &hash, int database = 0);
    // Within the transaction that imports.
    static void note(const QString &kind, const QString &hash, const QString &file, int rows, int database = 0);

    qint32 m_iID = 0;
    QString m_sKind;
    QString m_sHash; // SHA-256, in hexadecimal digits
    QString m_sFile;
    qint32 m_iRows = 0;
    qint32 m_iUserID = 0;
    QDateTime m_dateCreate;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};
