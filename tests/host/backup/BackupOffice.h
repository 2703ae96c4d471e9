// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupCipher.h"
#include "host/backup/BackupTaking.h"
#include "host/server/ServerError.h"
#include "tests/support/PrivateTestServer.h"
#include "tests/support/TestDatabase.h"

#include <QDir>
#include <QTemporaryDir>

#include <functional>
#include <memory>

// A database with some tables of an office, and folders for its backups.
class BackupOffice
{
public:
    BackupOffice()
        : m_folder(std::make_unique<QTemporaryDir>(PrivateTestServer::folderTemplate()))
    {
        BackupCipher::setUsualEffort({1, 8192});
    }

    void renew()
    {
        m_folder = std::make_unique<QTemporaryDir>(PrivateTestServer::folderTemplate());
        m_database.recreate();
    }

    TestDatabase &database() { return m_database; }
    QString value(const QString &statement) { return m_database.value(statement); }
    DataFolder office() const { return DataFolder(m_folder->filePath(QStringLiteral("office"))); }
    QString backups() const { return office().backupsPath(); }
    QStringList files() const { return QDir(backups()).entryList(QDir::Files | QDir::Hidden); }
    BackupTaking taking() const { return BackupTaking(m_database.settings()); }
    BackupFile take(const QString &passphrase = {}) const
    {
        BackupTaking::Request request{backups()};
        request.passphrase = passphrase;
        return taking().take(request);
    }

    void fill(int rows)
    {
        m_database.run(QStringLiteral("CREATE TABLE Cars (iID INT PRIMARY KEY AUTO_INCREMENT, sName VARCHAR(50) CHARACTER SET utf8,"
                                      " sEmoji VARCHAR(20), oData LONGBLOB, date DATETIME, dPrice DOUBLE) ENGINE=InnoDB"));
        m_database.run(QStringLiteral("INSERT INTO Cars (sName, sEmoji, oData, date, dPrice) VALUES"
                                      " ('پژو ۴۰۵ ''جی‌ال‌ایکس''\\\\', '🚗', 0x00FF0A0D1A275C00, NULL, 1234567890.25)"));
        m_database.run(QStringLiteral("INSERT INTO Cars (sName, oData, dPrice) SELECT CONCAT('r', seq), REPEAT(MD5(seq), 30), seq/3 FROM seq_1_to_%1").arg(rows));
        m_database.run(QStringLiteral("CREATE TABLE Documents (iID INT PRIMARY KEY AUTO_INCREMENT, iNum INT, iFiscalYear INT) ENGINE=InnoDB"));
        m_database.run(QStringLiteral("CREATE TABLE Docs (iID INT PRIMARY KEY AUTO_INCREMENT, iDocNum INT, iFiscalYear INT, dBed DOUBLE, dBes DOUBLE) ENGINE=InnoDB"));
        m_database.run(QStringLiteral("INSERT INTO Documents(iNum,iFiscalYear) VALUES(1,1405),(2,1405)"));
        m_database.run(QStringLiteral("INSERT INTO Docs(iDocNum,iFiscalYear,dBed,dBes) VALUES(1,1405,100.5,0),(1,1405,0,100.5),(2,1405,7,0),(2,1405,0,6)"));
    }

    // Databases that a restoring has made beside ours.
    QStringList databasesBeside()
    {
        return value(QStringLiteral("SELECT GROUP_CONCAT(schema_name) FROM information_schema.schemata WHERE schema_name LIKE '%1\\_%'").arg(m_database.name()))
            .split(QLatin1Char(','), Qt::SkipEmptyParts);
    }

    // The error with which the operation ends; Kind::Timeout when it does not.
    static ServerError failureOf(const std::function<void()> &operation)
    {
        try {
            operation();
        } catch (const ServerError &error) {
            return error;
        }
        return {ServerError::Kind::Timeout, QStringLiteral("it did not fail")};
    }

private:
    TestDatabase::Alone m_alone; // a backup holds all writers of a server
    TestDatabase m_database;
    std::unique_ptr<QTemporaryDir> m_folder;
};
