// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "bench/SqlPeer.h"

#include "suite/db/connection/KConnection.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QSqlTableModel>
#include <QVariant>

using namespace Qt::StringLiterals;

QSqlDatabase SqlPeer::database()
{
    const QString name = u"peer"_s;
    if (QSqlDatabase::contains(name))
        return QSqlDatabase::database(name);
    const KConnectionSettings settings = KConnection::settings(0);
    QSqlDatabase made = QSqlDatabase::addDatabase(u"QMYSQL"_s, name);
    made.setConnectOptions(u"UNIX_SOCKET="_s + settings.socketPath);
    made.setDatabaseName(settings.database);
    made.setUserName(settings.user);
    made.setPassword(settings.password);
    if (!made.open())
        qFatal("Qt's classes do not reach the database: %s", qPrintable(made.lastError().text()));
    return made;
}

int SqlPeer::read(const QString &statement)
{
    QSqlQuery query(database());
    query.setForwardOnly(true);
    if (!query.exec(statement))
        qFatal("%s", qPrintable(query.lastError().text()));
    int rows = 0;
    const int columns = query.record().count();
    for (; query.next(); ++rows) {
        for (int column = 0; column < columns; ++column)
            benchmark::DoNotOptimize(query.value(column).toString());
    }
    return rows;
}

SqlPeer::List::List(const QString &name, const QString &statement)
{
    KConnection::forThread().run("CREATE OR REPLACE VIEW " + name.toLatin1() + " AS " + statement.toUtf8());
    m_model = std::make_unique<QSqlTableModel>(nullptr, database());
    m_model->setTable(name);
    m_view.setUniformRowHeights(true);
    m_view.setRootIsDecorated(false);
    m_view.setAlternatingRowColors(true);
    m_view.setModel(m_model.get());
    m_view.resize(1366, 700);
    m_view.show();
    QCoreApplication::processEvents();
}

SqlPeer::List::~List()
{
    m_view.setModel(nullptr);
}

int SqlPeer::List::fill()
{
    if (!m_model->select())
        qFatal("%s", qPrintable(m_model->lastError().text()));
    while (m_model->canFetchMore())
        m_model->fetchMore();
    m_view.viewport()->repaint();
    QCoreApplication::processEvents();
    return m_model->rowCount();
}
