// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/SuiteSchema.h"
#include "tests/support/TestDatabase.h"

#include <QFile>
#include <QMap>
#include <QStringList>

using namespace Qt::StringLiterals;

// A database as a program of some years ago left it, with a row in every table.
class OldOffice
{
public:
    explicit OldOffice(TestDatabase &database)
        : m_database(database)
    {
    }

    // The suite's tables as they are now, the module's as of that version; 0: without the module's.
    void make(double version)
    {
        m_database.recreate();
        SuiteSchema::upgrade();
        QFile file(u"" TZ_UPGRADE_STATEMENTS ""_s);
        if (!file.open(QIODevice::ReadOnly))
            qFatal("the statements of the upgrade are missing");
        const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
        for (const QString &line : lines) {
            if (!line.startsWith(u'#') && line.section(u'\t', 0, 0).toDouble() <= version)
                m_database.run(line.section(u'\t', 1));
        }
        if (version > 0) {
            SuiteSchema::raiseModuleVersion(version);
            SuiteSchema::afterModuleUpgrade();
        }
        addRows();
    }

    QStringList tables() { return list(u"SELECT GROUP_CONCAT(TABLE_NAME ORDER BY 1) FROM information_schema.TABLES WHERE TABLE_SCHEMA=DATABASE()"_s); }

    // A row in every table that has a key.
    void addRows()
    {
        for (const QString &table : keyedTables())
            m_database.run(u"INSERT IGNORE INTO %1(iID) VALUES((SELECT 77+COUNT(*) FROM %1 AS t))"_s.arg(table));
    }

    // The keys of the rows in each table.
    QMap<QString, QStringList> rows()
    {
        QMap<QString, QStringList> rows;
        for (const QString &table : keyedTables())
            rows.insert(table, list(u"SELECT GROUP_CONCAT(iID ORDER BY iID) FROM %1"_s.arg(table)));
        return rows;
    }

    // All columns and keys, so that two databases can be compared.
    QStringList shape()
    {
        return list(u"SELECT GROUP_CONCAT(CONCAT_WS(' ',TABLE_NAME,COLUMN_NAME,COLUMN_TYPE,COALESCE(COLUMN_DEFAULT,'-')) ORDER BY 1) FROM "
                    "information_schema.COLUMNS WHERE TABLE_SCHEMA=DATABASE()"_s)
            + list(u"SELECT GROUP_CONCAT(CONCAT_WS(' ',TABLE_NAME,INDEX_NAME,SEQ_IN_INDEX,COLUMN_NAME) ORDER BY 1) FROM "
                   "information_schema.STATISTICS WHERE TABLE_SCHEMA=DATABASE()"_s);
    }

private:
    QStringList list(const QString &query)
    {
        m_database.run(u"SET SESSION group_concat_max_len=10000000"_s);
        return m_database.value(query).split(u',', Qt::SkipEmptyParts);
    }

    QStringList keyedTables()
    {
        return list(u"SELECT GROUP_CONCAT(TABLE_NAME ORDER BY 1) FROM information_schema.COLUMNS WHERE TABLE_SCHEMA=DATABASE() "
                    "AND COLUMN_NAME='iID' AND TABLE_NAME<>'Properties'"_s);
    }

    TestDatabase &m_database;
};
