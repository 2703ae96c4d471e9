// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/TableExchange.h"

#include "host/backup/BackupSql.h"
#include "host/server/ServerError.h"
#include "suite/db/connection/KConnection.h"

#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcExchange, "tz.backup")

// Comments of the databases beside the office's; no RENAME moves a comment, and no backup holds it. Nothing that lacks one is ever dropped.
const QString markOfOurs = u"TzAuto restoring"_s;
const QString markOfCopied = markOfOurs + u", copied"_s; // or nobody wants a copy

}

TableExchange::TableExchange(KConnection &connection, const QString &database)
    : m_connection(connection)
    , m_database(database)
    , m_aside(database + u"_restoring"_s)
    , m_replaced(database + u"_replaced"_s) { }

// The server would notice the end of the connection only a little later, when the next restoring may have asked already.
TableExchange::~TableExchange()
{
    try {
        if (m_isLocked)
            m_connection.run("DO RELEASE_LOCK(" + lockName() + ')');
    } catch (const CMySQLException &error) {
        qCWarning(lcExchange).noquote() << "the lock of restoring goes with its connection:" << error.GetErrorMessage();
    }
}

bool TableExchange::lock()
{
    m_isLocked = BackupSql::value(m_connection, "SELECT GET_LOCK(" + lockName() + ",0)") == "1";
    return m_isLocked;
}

void TableExchange::requireOwnNames()
{
    for (const QString &database : {m_aside, m_replaced}) {
        if (!mayBeDropped(database))
            throw ServerError(ServerError::Kind::DumpFailed,
                              u"پایگاه داده «\u2068%1\u2069» را این برنامه نساخته است و بازگرداندن به نام آن نیاز دارد؛ تغییر نام یا حذف آن را از مسئول سرور بخواهید."_s.arg(database),
                              u"not ours: "_s + database);
    }
}

void TableExchange::beginAside()
{
    drop(m_aside);
    make(m_aside, markOfOurs);
}

void TableExchange::giveUp()
{
    drop(m_aside);
    if (BackupSql::tablesOf(m_connection, m_replaced).isEmpty())
        drop(m_replaced);
}

void TableExchange::run(bool isCopyWanted)
{
    make(m_replaced, isCopyWanted ? markOfOurs : markOfCopied);
    QByteArrayList moves;
    move(BackupSql::tablesOf(m_connection, m_database), m_database, m_replaced, moves);
    move(BackupSql::tablesOf(m_connection, m_aside), m_aside, m_database, moves);
    m_connection.run("RENAME TABLE " + moves.join(", "));
}

bool TableExchange::hasHappened()
{
    return BackupSql::tablesOf(m_connection, m_aside).isEmpty() && !BackupSql::tablesOf(m_connection, m_replaced).isEmpty();
}

void TableExchange::markCopied()
{
    m_connection.run("ALTER DATABASE " + BackupSql::name(m_replaced) + " COMMENT " + BackupSql::text(markOfCopied));
}

void TableExchange::finish()
{
    drop(m_replaced);
    drop(m_aside);
}

bool TableExchange::holdsUncopied()
{
    return mark(m_replaced) == markOfOurs && !BackupSql::tablesOf(m_connection, m_replaced).isEmpty();
}

bool TableExchange::leftSomething()
{
    return !BackupSql::value(m_connection, "SELECT 1 FROM information_schema.SCHEMATA WHERE SCHEMA_NAME IN (" + BackupSql::text(m_aside) + ',' + BackupSql::text(m_replaced) + ") LIMIT 1").isNull();
}

void TableExchange::clean()
{
    const QStringList waiting = isOurs(m_aside) ? BackupSql::tablesOf(m_connection, m_aside) : QStringList();
    const QStringList replaced = isOurs(m_replaced) ? BackupSql::tablesOf(m_connection, m_replaced) : QStringList();
    const QStringList present = BackupSql::tablesOf(m_connection, m_database);
    if (!replaced.isEmpty() && (present.isEmpty() || !waiting.isEmpty())) {
        // Tables that stand nowhere else go back; with others of their names in their place, nobody can tell which are meant.
        QByteArrayList moves;
        QStringList home;
        for (const QString &table : replaced) {
            if (!present.contains(table, Qt::CaseInsensitive))
                home << table;
        }
        move(home, m_replaced, m_database, moves);
        if (!moves.isEmpty())
            m_connection.run("RENAME TABLE " + moves.join(", "));
        qCWarning(lcExchange).noquote() << "a restoring was cut off; tables put back:" << home.join(u' ');
        if (home.size() < replaced.size())
            return;
    }
    if (holdsUncopied())
        qCWarning(lcExchange).noquote() << m_replaced << "stays: a restoring was cut off before what was saved last was in a backup";
    else if (mayBeDropped(m_replaced))
        drop(m_replaced);
    if (mayBeDropped(m_aside))
        drop(m_aside);
    for (const QString &database : {m_aside, m_replaced}) {
        if (!mayBeDropped(database))
            qCWarning(lcExchange).noquote() << database << "stays: no restoring has made it";
    }
}

QByteArray TableExchange::lockName() const
{
    return BackupSql::text(u"tzauto restoring "_s + m_database.left(40));
}

void TableExchange::make(const QString &database, const QString &mark)
{
    m_connection.run("CREATE DATABASE " + BackupSql::name(database) + " COMMENT " + BackupSql::text(mark));
}

// The tables before the database, so that whatever a kill leaves has its mark still.
void TableExchange::drop(const QString &database)
{
    if (!BackupSql::hasDatabase(m_connection, database))
        return;
    QByteArrayList tables;
    const QStringList present = BackupSql::tablesOf(m_connection, database);
    for (const QString &table : present)
        tables << BackupSql::name(database, table);
    if (!tables.isEmpty())
        m_connection.run("SET STATEMENT foreign_key_checks=0 FOR DROP TABLE " + tables.join(", "));
    m_connection.run("DROP DATABASE IF EXISTS " + BackupSql::name(database));
}

QString TableExchange::mark(const QString &database)
{
    return QString::fromUtf8(
        BackupSql::value(m_connection, "SELECT SCHEMA_COMMENT FROM information_schema.SCHEMATA WHERE SCHEMA_NAME=" + BackupSql::text(database)));
}

bool TableExchange::isOurs(const QString &database)
{
    return mark(database).startsWith(markOfOurs);
}

// One that is not there or has nothing in it is nobody's.
bool TableExchange::mayBeDropped(const QString &database)
{
    const QByteArray name = BackupSql::text(database);
    return isOurs(database)
        || BackupSql::value(m_connection, "SELECT (SELECT COUNT(*) FROM information_schema.TABLES WHERE TABLE_SCHEMA=" + name + ")+(SELECT COUNT(*) FROM information_schema.ROUTINES WHERE ROUTINE_SCHEMA=" + name + ')')
        == "0";
}

void TableExchange::move(const QStringList &tables, const QString &from, const QString &to, QByteArrayList &moves)
{
    for (const QString &table : tables)
        moves << BackupSql::name(from, table) + " TO " + BackupSql::name(to, table);
}
