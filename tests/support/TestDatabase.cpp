// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/TestDatabase.h"

#include "tests/support/PrivateTestServer.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFileInfo>

#include <atomic>
#include <mysql.h>

using namespace Qt::StringLiterals;

namespace {

// Tests run side by side, and one test may have several databases.
QString freshName()
{
    static std::atomic<int> counter{0};
    const QString test = QFileInfo(QCoreApplication::arguments().value(0)).completeBaseName().left(30);
    return u"%1_%2_%3"_s.arg(test).arg(QCoreApplication::applicationPid()).arg(++counter);
}

bool isAlone = false;

QByteArray quotedName(const QString &name)
{
    return '`' + name.toUtf8() + '`';
}

}

TestDatabase::Alone::Alone()
{
    isAlone = true;
}

TestDatabase::Alone::~Alone()
{
    isAlone = false;
}

TestDatabase::TestDatabase(int database)
    : m_database(database)
{
    if (const std::optional<KConnectionSettings> run = isAlone ? std::nullopt : PrivateTestServer::ofThisRun()) {
        m_settings = *run;
    } else {
        m_ownServer = std::make_unique<PrivateTestServer>();
        m_settings = m_ownServer->server().connectionSettings();
    }
    m_settings.database = freshName();
    recreate();
}

TestDatabase::~TestDatabase()
{
    KConnection::closeThreadConnections();
    KConnectionSettings server = m_settings;
    server.database.clear();
    try {
        KConnection(server).run("DROP DATABASE IF EXISTS " + quotedName(name()));
    } catch (const CMySQLException &error) {
        qWarning() << "the test database stays behind:" << error.what();
    }
}

void TestDatabase::recreate()
{
    KConnectionSettings server = m_settings;
    server.database.clear();
    KConnection connection(server);
    // A connection that was cut a moment ago may still hold a table.
    connection.run(QByteArrayLiteral("SET SESSION lock_wait_timeout=60"));
    connection.run("DROP DATABASE IF EXISTS " + quotedName(name()));
    connection.run("CREATE DATABASE " + quotedName(name()));
    KConnection::configure(m_database, m_settings);
}

void TestDatabase::run(const QString &statement)
{
    KConnection::forThread(m_database).run(statement.toUtf8());
}

QString TestDatabase::value(const QString &statement)
{
    const KConnection::Result result = KConnection::forThread(m_database).run(statement.toUtf8());
    const MYSQL_ROW row = result ? mysql_fetch_row(result.get()) : nullptr;
    return row && row[0] ? QString::fromUtf8(row[0]) : QString();
}

// Not the server's CHECKSUM TABLE: that is another each time where the table computes a column.
QByteArray TestDatabase::sumOf(const QString &table)
{
    QCryptographicHash sum(QCryptographicHash::Md5);
    const KConnection::Result result = KConnection::forThread(m_database).run("SELECT * FROM " + quotedName(table) + " ORDER BY 1");
    while (const MYSQL_ROW row = mysql_fetch_row(result.get())) {
        const unsigned long *lengths = mysql_fetch_lengths(result.get());
        for (unsigned int cell = 0; cell < mysql_num_fields(result.get()); ++cell)
            sum.addData(row[cell] ? QByteArray::number(qulonglong(lengths[cell])) + ' ' + QByteArray(row[cell], qsizetype(lengths[cell])) : QByteArray("NULL"));
    }
    return sum.result().toHex();
}
