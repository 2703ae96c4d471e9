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

// The columns whose values stand in the rows; empty where the table computes none of its columns.
QByteArrayList storedColumns(KConnection &connection, const QString &database, const QString &table)
{
    QByteArrayList stored;
    bool computesSome = false;
    for (const QByteArrayList &row : rows(connection,
                                          "SELECT COLUMN_NAME,EXTRA LIKE '%VIRTUAL GENERATED%' FROM information_schema.COLUMNS WHERE TABLE_SCHEMA="
                                              + text(database) + " AND TABLE_NAME=" + text(table) + " ORDER BY ORDINAL_POSITION")) {
        if (row[1] == "1")
            computesSome = true;
        else
            stored.append(name(QString::fromUtf8(row[0])));
    }
    return computesSome ? stored : QByteArrayList();
}

// Each value's own sum, so that no row is too long for the server to put together.
QByteArray sumStatement(const QByteArray &table, const QByteArrayList &columns)
{
    QByteArrayList sums;
    for (const QByteArray &column : columns)
        sums.append("COALESCE(CRC32(" + column + "),'-')");
    return "SELECT COALESCE(SUM(CRC32(CONCAT_WS(','," + sums.join(',') + "))),0)%4294967296 FROM " + table;
}

std::optional<qint64> checksum(KConnection &connection, const QString &database, const QString &table)
{
    const QByteArray whole = name(database, table);
    const QByteArrayList stored = storedColumns(connection, database, table);
    // The server's own sum takes in what it finds in memory where a column is computed: each time another.
    const QList<QByteArrayList> sum = stored.isEmpty() ? rows(connection, "CHECKSUM TABLE " + whole) : rows(connection, sumStatement(whole, stored));
    if (sum.isEmpty() || sum.constFirst().constLast().isNull())
        return std::nullopt;
    return sum.constFirst().constLast().toLongLong();
}

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
            table.checksum = checksum(connection, database, table.name);
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
