// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupRestoring.h"
#include "host/backup/BackupTaking.h"
#include "host/backup/BackupVerification.h"
#include "host/server/Platform.h"
#include "tests/support/PrivateTestServer.h"

#include <QCoreApplication>

#include <cstdio>
#include <iostream>
#include <string>

using namespace Qt::StringLiterals;

namespace {

QString victimLine()
{
    std::string line;
    std::getline(std::cin, line);
    return QString::fromStdString(line);
}

// As a kill from outside, but at this very point.
void die()
{
    platform::forceStop(QCoreApplication::applicationPid());
}

// Somebody saves at the last moment.
void dieAfterExchange(const KConnectionSettings &settings)
{
    static bool isExchanged = false;
    KConnection::setStatementObserver([settings](const QString &statement) {
        if (isExchanged)
            die();
        if (statement.startsWith(u"RENAME TABLE"_s)) {
            KConnection(settings).run(QByteArrayLiteral("INSERT INTO Cars(sName) VALUES('late')"));
            isExchanged = true;
        }
    });
}

}

// Reads socket, account, password, database, the data folder and a backup's file, a line each; then does what its arguments say and
// dies at the point that they name.
int main(int argumentCount, char **arguments)
{
    const QCoreApplication application(argumentCount, arguments);
    const QString work = QCoreApplication::arguments().value(1);
    const QString point = QCoreApplication::arguments().value(2);
    KConnectionSettings settings;
    settings.socketPath = victimLine();
    settings.user = victimLine();
    settings.password = victimLine();
    settings.database = victimLine();
    const DataFolder folder(victimLine());
    BackupFile file(victimLine());
    const auto midway = [&](qint64 done, qint64 expected) {
        if (point == u"midway"_s && done > 0 && done >= expected / 3)
            die();
        return true;
    };
    try {
        if (work == u"take"_s) {
            static_cast<void>(BackupTaking(settings).take({folder.backupsPath()}, midway));
        } else if (work == u"verify"_s) {
            BackupVerification verification(folder);
            verification.setLowPriority(false);
            static_cast<void>(verification.run(file, {}, midway));
        } else if (work == u"restore"_s) {
            BackupRestoring::Request request{file, {}, folder.backupsPath()};
            if (point == u"exchanged"_s)
                dieAfterExchange(settings);
            else
                request.beforeExchange = [&](const QString &) { die(); };
            static_cast<void>(BackupRestoring(settings).restore(request, midway));
        } else {
            static_cast<void>(BackupRestoring::intoNewFolder(folder, file, {}, midway, PrivateTestServer::options(), [&](const KConnectionSettings &) { die(); }));
        }
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
