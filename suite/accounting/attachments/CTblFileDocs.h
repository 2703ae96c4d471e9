// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/connection/KLongBinary.h"
#include "suite/db/records/KMySQL.h"
#include "suite/accounting/TzAccountingDataExport.h"

#include <QList>

// Files attached to records. General files are everybody's, personal ones belong to the user who attached them.
class TZACCOUNTINGDATA_EXPORT CTblFileDocs : public KMySQL, private KLiveCount<CTblFileDocs>
{
public:
    using KLiveCount<CTblFileDocs>::liveCount;

    // Stored in iScope.
    enum Scope : int {
        General = 0,
        Personal = 1
    };
    struct FileInfo
    {
        int id = 0;
        QString name;
        QDateTime created;
        int userID = 0;
    };

    // Largest file that is kept: 25 MiB.
    static constexpr qint64 maxFileBytes = qint64{25} * 1024 * 1024;

    explicit CTblFileDocs(int database = 0);
    ~CTblFileDocs() override;
    QString GetTableName() const override;

    // The record's files without their contents, oldest first; userID counts for personal files only.
    static QList<FileInfo> list(int table, int recordID, Scope scope, int userID, int database = 0);
    // Keeps a file for the record under its own name. Returns the key of its row. Throws KAccountingError for a file that
    // cannot be read, is empty or is too large (for this program or for the server), and in a closed database.
    static int addFile(int table, int recordID, Scope scope, int userID, const QString &path, int database = 0);
    // The same with what is not a file yet.
    static int addContent(int table, int recordID, Scope scope, int userID, const QString &name, const QByteArray &data, int database = 0);
    // Name and contents; false when the file is gone or is another user's personal one.
    static bool content(int id, int userID, QString *name, QByteArray *data, int database = 0);
    // Deletes one file that the user may see. True when it is gone.
    static bool deleteFile(int id, int userID, int database = 0);
    // Deletes the files of one record, of both scopes; userID 0: of every user.
    static void DeleteAllRelatedRecords(int table, int recordID, int userID, int database = 0);

    // The name in a form that is valid for a file on any system: no folders, no control characters, no reserved names.
    static QString safeFileName(const QString &name);

    qint32 m_iID = 0;
    qint32 m_iTable = 0;
    qint32 m_iRecordID = 0;
    qint32 m_iScope = 0;
    qint32 m_iUserID = 0;
    QString m_sName;
    KLongBinary m_oData;
    QDateTime m_dateCreate;

protected:
    void DoFieldExchange() override;
};
