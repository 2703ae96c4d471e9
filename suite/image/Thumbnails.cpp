// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/image/Thumbnails.h"

#include "suite/db/connection/KTransaction.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KRowFollowers.h"
#include "suite/image/PictureIntake.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int thumbnailQuality = 80;

QString thumbnailFollower(const Thumbnails::Source &source)
{
    return u"thumbnails/"_s + source.table;
}

KSql ofRecord(const Thumbnails::Source &source, qint32 key)
{
    return KSql::formatted("iTable=%1 AND iRecordID=%2 AND iPictureID=0", source.recordKind, key);
}

void forget(const Thumbnails::Source &source, qint32 key, int database)
{
    CTblTemp(database).ExecuteQuery("DELETE FROM Thumbnails WHERE " + ofRecord(source, key));
}

void keep(const Thumbnails::Source &source, qint32 key, const QByteArray &thumbnail, int database)
{
    CTblTemp(database).ExecuteQuery(
        KSql::formatted("INSERT INTO Thumbnails(iTable,iRecordID,iPictureID,oPicture) VALUES(%1,%2,0,%3) ON DUPLICATE KEY UPDATE oPicture=VALUES(oPicture)",
                        source.recordKind, key, KSql::quoted(thumbnail)));
}

}

QByteArray Thumbnails::made(const QByteArray &stored)
{
    return made(PictureIntake::decode(stored), {maxWidth, maxHeight});
}

QByteArray Thumbnails::made(const QImage &picture, const QSize &longest)
{
    if (picture.isNull())
        return {};
    QSize size = picture.size();
    if (size.width() > longest.width() || size.height() > longest.height())
        size.scale(longest, Qt::KeepAspectRatio);
    QImage small(size.expandedTo(QSize(1, 1)), QImage::Format_RGB32);
    small.fill(Qt::white);
    QPainter painter(&small);
    painter.drawImage(0, 0, picture.scaled(small.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(thumbnailQuality);
    return writer.write(small) ? bytes : QByteArray();
}

void Thumbnails::follow(const Source &source)
{
    KRowFollowers::enter(thumbnailFollower(source), source.table,
                         {.written = [source](qint32 key, int database) { make(source, key, database); },
                          .deleted = [source](qint32 key, int database) { forget(source, key, database); },
                          .columns = {source.column}});
}

void Thumbnails::unfollow(const Source &source)
{
    KRowFollowers::remove(thumbnailFollower(source));
}

// What stands there is read along, so that a record without a picture, as every new one, costs no second statement.
void Thumbnails::make(const Source &source, qint32 key, int database)
{
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(KSql::formatted("SELECT r.%1,t.iID FROM %2 r LEFT JOIN Thumbnails t ON t.iTable=%3 AND t.iRecordID=r.iID AND t.iPictureID=0 WHERE r.iID=%4",
                                       KSql::name(source.column), KSql::name(source.table), source.recordKind, key));
    if (!query.HasResultRow())
        return forget(source, key, database);
    const QByteArray picture = query.GetBinaryFieldValue(0);
    if (!picture.isEmpty() || query.GetLongFieldValue(1) != 0)
        keep(source, key, made(picture), database);
}

bool Thumbnails::buildStep(const Source &source, qint32 &before, QList<qint32> *shown, int database)
{
    QList<qint32> missing;
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(KSql::formatted("SELECT r.iID FROM %1 r LEFT JOIN Thumbnails t ON t.iTable=%2 AND t.iRecordID=r.iID AND t.iPictureID=0 "
                                       "WHERE t.iID IS NULL AND r.iID<%3 ORDER BY r.iID DESC LIMIT %4",
                                       KSql::name(source.table), source.recordKind, before, recordsPerStep));
    for (; query.HasResultRow(); query.MoveNextResult())
        missing.append(query.GetLongFieldValue(0));
    for (const qint32 key : missing) {
        bool isShown = false;
        // The row is held, so that a picture that is saved meanwhile comes after this one.
        KTransaction::runReplayable([&] {
            CTblTemp record(database);
            record.Open(true, false, true);
            record.ExecuteQuery(KSql::formatted("SELECT %1 FROM %2 WHERE iID=%3 FOR UPDATE", KSql::name(source.column), KSql::name(source.table), key));
            if (!record.HasResultRow())
                return;
            const QByteArray thumbnail = made(record.GetBinaryFieldValue(0));
            isShown = !thumbnail.isEmpty();
            keep(source, key, thumbnail, database);
        },
                                    database);
        if (shown && isShown)
            shown->append(key);
        before = key;
    }
    return missing.size() == recordsPerStep;
}

void Thumbnails::build(const Source &source, int database)
{
    qint32 before = std::numeric_limits<qint32>::max();
    while (buildStep(source, before, nullptr, database)) { }
}
