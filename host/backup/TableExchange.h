// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArrayList>
#include <QString>
#include <QStringList>

class KConnection;

// The two databases beside the office's, for as long as a restoring takes, and the order in which they come and go: one into which the backup is
// loaded, one for the tables that it takes the place of. Operations throw CMySQLException.
class TableExchange
{
public:
    TableExchange(KConnection &connection, const QString &database);
    ~TableExchange();
    TableExchange(const TableExchange &) = delete;
    TableExchange &operator=(const TableExchange &) = delete;

    QString aside() const { return m_aside; }
    QString replaced() const { return m_replaced; }

    // False while another restoring works on the database. Ends with the connection, also when the program is killed.
    bool lock();
    // Throws ServerError when somebody else's database has a name that is needed.
    void requireOwnNames();
    void beginAside();
    // Before the tables have changed places.
    void giveUp();
    // One RENAME moves the old tables out and the new ones in, so that nobody ever sees none or only half of them. isCopyWanted: the old ones stay
    // until markCopied.
    void run(bool isCopyWanted);
    // Where the answer to the RENAME was lost, the tables say what became of it.
    bool hasHappened();
    // All that is in the replaced tables is in a backup.
    void markCopied();
    void dropReplaced() { drop(m_replaced); }
    void finish();
    // Replaced tables of which nobody knows that they are in a backup.
    bool holdsUncopied();
    // Whether there is a database of either name, this program's or not.
    bool leftSomething();
    // After a kill: the exchange has happened, or it has not, and which can be seen from where the tables are.
    void clean();

private:
    QByteArray lockName() const;
    void make(const QString &database, const QString &mark);
    void drop(const QString &database);
    QString mark(const QString &database);
    bool isOurs(const QString &database);
    bool mayBeDropped(const QString &database);
    static void move(const QStringList &tables, const QString &from, const QString &to, QByteArrayList &moves);

    KConnection &m_connection;
    QString m_database;
    QString m_aside;
    QString m_replaced;
    bool m_isLocked = false;
};
