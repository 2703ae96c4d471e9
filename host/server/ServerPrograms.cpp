// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/ServerPrograms.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace {

// The server lies in a folder that is not in an ordinary user's PATH.
QString find(std::initializer_list<QString> names)
{
    static const QStringList folders{QStringLiteral("/usr/sbin"), QStringLiteral("/usr/bin"),
                                     QStringLiteral("/usr/local/sbin"), QStringLiteral("/usr/local/bin")};
    for (const QString &name : names) {
        QString path = QStandardPaths::findExecutable(name, folders);
        if (path.isEmpty())
            path = QStandardPaths::findExecutable(name);
        if (!path.isEmpty())
            return path;
    }
    return {};
}

// Later releases name the same statements after the product.
QString findScripts()
{
    for (const QString &folder :
         {QStringLiteral("/usr/share/mysql"), QStringLiteral("/usr/share/mariadb"),
          QStringLiteral("/usr/local/share/mysql"), QStringLiteral("/usr/local/share/mariadb")}) {
        for (const QString &name :
             {QStringLiteral("/mysql_system_tables.sql"), QStringLiteral("/mariadb_system_tables.sql")}) {
            if (QFileInfo::exists(folder + name))
                return folder;
        }
    }
    return {};
}

}

const ServerPrograms &ServerPrograms::installed()
{
    static const ServerPrograms programs{
        find({QStringLiteral("mariadbd"), QStringLiteral("mysqld")}),
        find({QStringLiteral("mariadb"), QStringLiteral("mysql")}),
        find({QStringLiteral("mariadb-dump"), QStringLiteral("mysqldump")}),
        find({QStringLiteral("mariadb-upgrade"), QStringLiteral("mysql_upgrade")}),
        findScripts(),
    };
    return programs;
}
