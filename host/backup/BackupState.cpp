// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupState.h"

#include "host/backup/BackupSql.h"
#include "suite/db/records/KChangeLog.h"

using namespace Qt::StringLiterals;
using namespace BackupSql;

namespace {

// Kinds of KChange that are changes of rows, or of all.
constexpr int lastKindOfRows = static_cast<int>(KChange::Kind::Restored);

}

namespace BackupState {

QList<BackupManifest::Table> tables(KConnection &connection, const QString &database)
{
    const QList<QByteArrayList> listed = rows(connection,
                                              "SELECT TABLE_NAME,ENGINE FROM information_schema.TABLES WHERE TABLE_TYPE='BASE TABLE' AND TABLE_SCHEMA="
                                                  + text(database) + " ORDER BY TABLE_NAME");
    QList<BackupManifest::Table> all;
    for (const QByteArrayList &row : listed) {
        BackupManifest::Table table{QString::fromUtf8(row[0])};
        // The other engines know no snapshot: what is counted there may be later than what was dumped.
        if (row[1] == "InnoDB") {
            const QByteArray whole = name(database, table.name);
            table.rows = value(connection, "SELECT COUNT(*) FROM " + whole).toLongLong();
            const QList<QByteArrayList> sum = rows(connection, "CHECKSUM TABLE " + whole);
            if (!sum.isEmpty() && !sum.constFirst().at(1).isNull())
                table.checksum = sum.constFirst().at(1).toLongLong();
        }
        all.append(table);
    }
    return all;
}

BackupManifest::Books books(KConnection &connection, const QString &database)
{
    if (!hasTable(connection, database, u"Documents"_s) || !hasTable(connection, database, u"Docs"_s))
        return {};
    // Doubles of a document with large amounts add up to what is a little beside.
    const QByteArrayList sums = rows(connection,
                                     "SELECT COALESCE(SUM(ABS(dBed-dBes)>GREATEST(0.0001,ABS(dBed)*1e-12)),0),COALESCE(SUM(dBed),0) FROM "
                                     "(SELECT SUM(dBed) dBed,SUM(dBes) dBes FROM "
                                         + name(database, u"Docs"_s) + " GROUP BY iDocNum,iFiscalYear) EachDocument")
                                    .constFirst();
    return {value(connection, "SELECT COUNT(*) FROM " + name(database, u"Documents"_s)).toLongLong(), sums[0].toLongLong(), sums[1].toDouble()};
}

qint64 lastChange(KConnection &connection, const QString &database)
{
    if (!hasTable(connection, database, u"Changes"_s))
        return 0;
    return value(connection,
                 "SELECT iID FROM " + name(database, u"Changes"_s) + " WHERE iKind<=" + QByteArray::number(lastKindOfRows) + " ORDER BY iID DESC LIMIT 1")
        .toLongLong();
}

void readVersions(KConnection &connection, BackupManifest &manifest)
{
    manifest.server = QString::fromUtf8(value(connection, "SELECT VERSION()"));
    manifest.largestPacket = value(connection, "SELECT @@GLOBAL.max_allowed_packet").toLongLong();
    manifest.lastChange = lastChange(connection, manifest.database);
    if (!hasTable(connection, manifest.database, u"Properties"_s))
        return;
    const auto version = [&](const char *key) {
        return value(connection, "SELECT sValue FROM " + name(manifest.database, u"Properties"_s) + " WHERE sSection='Schema' AND sKey='" + key + "'").toDouble();
    };
    manifest.suiteVersion = static_cast<int>(version("Suite"));
    manifest.moduleVersion = version("TzAuto");
}

}
