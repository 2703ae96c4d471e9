// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/ServerPrograms.h"

#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

// The server is in a folder that is not in an ordinary user's PATH.
QString find(std::initializer_list<QString> names)
{
    static const QStringList folders{u"/usr/sbin"_s, u"/usr/bin"_s,
                                     u"/usr/local/sbin"_s, u"/usr/local/bin"_s};
    for (const QString &name : names) {
        QString path = QStandardPaths::findExecutable(name, folders);
        if (path.isEmpty())
            path = QStandardPaths::findExecutable(name);
        if (!path.isEmpty())
            return path;
    }
    return {};
}

// Later releases call the same file after the product.
QString findScripts()
{
    for (const QString &folder :
         {u"/usr/share/mysql"_s, u"/usr/share/mariadb"_s,
          u"/usr/local/share/mysql"_s, u"/usr/local/share/mariadb"_s}) {
        for (const QString &name :
             {u"/mysql_system_tables.sql"_s, u"/mariadb_system_tables.sql"_s}) {
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
        find({u"mariadbd"_s, u"mysqld"_s}),
        find({u"mariadb"_s, u"mysql"_s}),
        find({u"mariadb-dump"_s, u"mysqldump"_s}),
        find({u"mariadb-upgrade"_s, u"mysql_upgrade"_s}),
        findScripts(),
        find({u"mariadb-binlog"_s, u"mysqlbinlog"_s}),
    };
    return programs;
}
