// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/TzDBExport.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

// Writes a table that is still empty with millions of rows: they are put down one after the other beside it, in a table of this session alone,
// and go over in one statement, for which the server sorts each index once instead of finding the place of every row in it. Where indexes do not fit
// into the server's memory, that is the difference between minutes and hours.
//
// Belongs inside a transaction, which takes it back as all else. Nobody else may write the table meanwhile; they would wait. What is put down is gone
// with the connection, so that a program that dies leaves nothing.
class TZDB_EXPORT KSortedInsert
{
public:
    // Columns that are not named get the table's default. Throws CMySQLException, as the others do.
    KSortedInsert(const QString &table, const QStringList &columns, int database = 0);
    ~KSortedInsert();
    KSortedInsert(const KSortedInsert &) = delete;
    KSortedInsert &operator=(const KSortedInsert &) = delete;

    // Rows as behind VALUES, with commas between them: "(1,'a'),(2,'b')".
    void put(const QByteArray &rows);
    // They stand in the table when this returns. An error when the table had one of their keys.
    void finish();

private:
    QByteArray m_table;
    QByteArray m_columns;
    QByteArray m_beside;
    int m_database;
    bool m_isOpen = false;
};
