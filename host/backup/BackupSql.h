// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KConnection.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

// Statements about databases of any name. Inside the library only.
namespace BackupSql {

// A table's or database's name as an identifier, whatever is in it.
QByteArray name(const QString &identifier);
QByteArray name(const QString &database, const QString &table);
QByteArray text(const QString &literal);
// NULL is a null array. Throws CMySQLException.
QList<QByteArrayList> rows(KConnection &connection, const QByteArray &statement);
// First column of the first row; null when there is none.
QByteArray value(KConnection &connection, const QByteArray &statement);
QStringList tablesOf(KConnection &connection, const QString &database);
bool hasTable(KConnection &connection, const QString &database, const QString &table);
bool hasDatabase(KConnection &connection, const QString &database);

}
