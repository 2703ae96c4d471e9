// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/KSortedInsert.h"

#include "suite/db/connection/KConnection.h"

using namespace Qt::StringLiterals;

namespace {

// The server sorts only for a session that promises to bring no key twice; one that it brings all the same is refused while the index is built.
class SortedIndexes
{
public:
    explicit SortedIndexes(KConnection &connection)
        : m_connection(connection)
    {
        m_connection.run(QByteArrayLiteral("SET SESSION unique_checks=0,foreign_key_checks=0"));
    }
    ~SortedIndexes()
    {
        try {
            m_connection.run(QByteArrayLiteral("SET SESSION unique_checks=1,foreign_key_checks=1"));
        } catch (const CMySQLException &) {
            // Never a session that checks less than others think.
            m_connection.close();
        }
    }
    SortedIndexes(const SortedIndexes &) = delete;
    SortedIndexes &operator=(const SortedIndexes &) = delete;

private:
    KConnection &m_connection;
};

}

KSortedInsert::KSortedInsert(const QString &table, const QStringList &columns, int database)
    : m_table(table.toUtf8())
    , m_columns(columns.join(u',').toUtf8())
    , m_beside("Beside" + m_table)
    , m_database(database)
{
    KConnection &connection = KConnection::forThread(m_database);
    // Rows are read once, in the order in which they came: no index, no log, no way back is needed.
    connection.run("CREATE OR REPLACE TEMPORARY TABLE " + m_beside + " ENGINE=MyISAM SELECT " + m_columns + " FROM " + m_table + " LIMIT 0");
    m_isOpen = true;
}

KSortedInsert::~KSortedInsert()
{
    if (!m_isOpen)
        return;
    try {
        KConnection::forThread(m_database).run("DROP TEMPORARY TABLE IF EXISTS " + m_beside);
    } catch (const CMySQLException &) {
        // Gone with the connection.
    }
}

void KSortedInsert::put(const QByteArray &rows)
{
    KConnection::forThread(m_database).run("INSERT INTO " + m_beside + '(' + m_columns + ") VALUES" + rows);
}

void KSortedInsert::finish()
{
    KConnection &connection = KConnection::forThread(m_database);
    const SortedIndexes sorted(connection);
    connection.run("INSERT INTO " + m_table + '(' + m_columns + ") SELECT " + m_columns + " FROM " + m_beside);
}
