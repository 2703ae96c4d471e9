// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/records/KChangeLog.h"

#include "suite/db/connection/KConnection.h"
#include "suite/db/connection/KStatementResult.h"
#include "suite/db/connection/KTableSchema.h"

#include <QSysInfo>

#include <atomic>

using namespace Qt::StringLiterals;

namespace {

std::atomic<qint32> currentAuthor{0};

bool isKept(int database)
{
    return !KTableSchema::of(u"Changes"_s, database).isEmpty();
}

bool keepsValues(int database)
{
    return KTableSchema::of(u"Changes"_s, database).column(u"sValues"_s) != nullptr;
}

QString computerName()
{
    static const QString name = QSysInfo::machineHostName().left(100);
    return name;
}

struct Note
{
    KSql columns;
    KSql values;
};

Note noteOf(const QString &table, const KSql &key, KChange::Kind kind, int database, const QList<KChangedValue> &values)
{
    Note note{"sTable,iRecordID,iKind,iUserID,sComputer,date",
              KSql::formatted("%1,%2,%3,%4,%5,NOW()", KSql::quoted(table), key, static_cast<int>(kind), KChangeLog::author(), KSql::quoted(computerName()))};
    if (!values.isEmpty() && keepsValues(database)) {
        note.columns += ",sValues";
        note.values += "," + KSql::quoted(QString::fromUtf8(KChangedValues::toJson(values)));
    }
    return note;
}

}

void KChangeLog::setAuthor(qint32 userID)
{
    currentAuthor = userID;
}

qint32 KChangeLog::author()
{
    return currentAuthor;
}

void KChangeLog::note(const QString &table, qint32 key, KChange::Kind kind, int database, const QList<KChangedValue> &values)
{
    if (!isKept(database))
        return;
    const Note note = noteOf(table, KSql::number(key), kind, database, values);
    KConnection::forThread(database).run(KSql::formatted("INSERT INTO Changes(%1) VALUES(%2)", note.columns, note.values));
}

void KChangeLog::noteNext(const QString &table, std::optional<qint32> key, KChange::Kind kind, int database, const QList<KChangedValue> &values)
{
    if (!isKept(database))
        return;
    const Note note = noteOf(table, key ? KSql::number(*key) : KSql("LAST_INSERT_ID()"), kind, database, values);
    KConnection::forThread(database).follow(
        KSql::formatted("INSERT INTO Changes(%1) SELECT %2 FROM DUAL WHERE %3", note.columns, note.values, KConnection::whereChanged()));
}

std::optional<KChange> KChangeLog::last(const QString &table, qint32 key, int database)
{
    if (!isKept(database))
        return std::nullopt;
    KStatementResult found;
    found.set(KConnection::forThread(database)
                  .run(KSql::formatted("SELECT iUserID,sComputer,date,iKind FROM Changes WHERE sTable=%1 AND iRecordID=%2"
                                       " ORDER BY iID DESC LIMIT 1",
                                       KSql::quoted(table), key)));
    if (!found.hasRow())
        return std::nullopt;
    return KChange{found.value<qint32>(0), found.value<QString>(1), found.value<QDateTime>(2),
                   static_cast<KChange::Kind>(found.value<qint32>(3))};
}
