// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/Placeholders.h"

#include "suite/accounting/office/OfficeSession.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/records/CTblTemp.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

KSql isRow(const Placeholders::Row &row)
{
    return KSql::formatted("sTable=%1 AND iRecordID=%2", KSql::quoted(row.table), row.key);
}

KSql allStatement()
{
    return "SELECT sTable,iRecordID,sSession FROM Placeholders ORDER BY iID";
}

KSql foundStatement(const Placeholders::Row &row)
{
    return "SELECT iID FROM Placeholders WHERE " + isRow(row);
}

}

void Placeholders::add(const Row &row, const QString &session, int database)
{
    CTblTemp statement(database);
    statement.ExecuteQuery(KSql::formatted("INSERT INTO Placeholders(sTable,iRecordID,sSession) VALUES(%1,%2,%3)",
                                           KSql::quoted(row.table), row.key, KSql::quoted(session)));
}

void Placeholders::addNext(const QString &table, const QString &session, int database)
{
    KConnection::forThread(database).follow(KSql::formatted("INSERT INTO Placeholders(sTable,iRecordID,sSession) SELECT %1,LAST_INSERT_ID(),%2 FROM DUAL WHERE %3",
                                                            KSql::quoted(table), KSql::quoted(session), KConnection::whereChanged()));
}

// Asked first: a DELETE that finds nothing would keep others from adding theirs until the transaction ends.
void Placeholders::confirm(const QString &table, qint32 key, int database)
{
    const Row row{table, key};
    if (!contains(row, database))
        return;
    CTblTemp statement(database);
    statement.ExecuteQuery("DELETE FROM Placeholders WHERE " + isRow(row));
}

bool Placeholders::contains(const Row &row, int database)
{
    CTblTemp statement(database);
    statement.ExecuteQuery(foundStatement(row));
    return statement.HasResultRow();
}

void Placeholders::expect(const Row &row, int database)
{
    KReadAhead::expect(foundStatement(row), database);
}

KSql Placeholders::none(const QString &table, const QString &key)
{
    return KSql::formatted("NOT EXISTS (SELECT 1 FROM Placeholders WHERE Placeholders.sTable=%1 AND Placeholders.iRecordID=%2)",
                           KSql::quoted(table), KSql::name(key.isEmpty() ? table + u".iID"_s : key));
}

void Placeholders::expectLeft(int database)
{
    KReadAhead::expect(allStatement(), database);
}

QList<Placeholders::Row> Placeholders::left(int database)
{
    CTblTemp statement(database);
    statement.ExecuteQuery(allStatement());
    QHash<QString, bool> alive;
    QList<Row> rows;
    for (; statement.HasResultRow(); statement.MoveNextResult()) {
        const QString session = statement.GetTextFieldValue(2);
        const auto known = alive.constFind(session);
        if (!(known != alive.cend() ? *known : *alive.insert(session, OfficeSession::isAlive(session, database))))
            rows.append({statement.GetTextFieldValue(0), statement.GetLongFieldValue(1)});
    }
    return rows;
}

bool Placeholders::lockLeft(const Row &row, int database)
{
    CTblTemp statement(database);
    statement.ExecuteQuery("SELECT sSession FROM Placeholders WHERE " + isRow(row) + " FOR UPDATE SKIP LOCKED");
    return statement.HasResultRow() && !OfficeSession::isAlive(statement.GetTextFieldValue(0), database);
}
