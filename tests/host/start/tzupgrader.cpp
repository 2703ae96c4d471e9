// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/CAutoDBSetting.h"
#include "host/server/ServerError.h"
#include "host/start/DatabaseUpgrade.h"

#include <QApplication>

#include <cstdio>
#include <iostream>
#include <string>

namespace {

QString nextLine()
{
    std::string line;
    std::getline(std::cin, line);
    return QString::fromStdString(line);
}

}

// Reads socket, account, password, database and the folder of the dumps, a line each, says "ready", waits for one more line and brings the
// database up, as a start does. Says "waiting" once when another program is at it, and "done" at the end.
int main(int argumentCount, char **arguments)
{
    const QApplication application(argumentCount, arguments);
    KConnectionSettings settings;
    settings.socketPath = nextLine();
    settings.user = nextLine();
    settings.password = nextLine();
    settings.database = nextLine();
    KConnection::configure(0, settings);
    const QString dumps = nextLine();
    const auto say = [](const char *word) {
        std::puts(word);
        std::fflush(stdout);
    };
    say("ready");
    nextLine();
    bool told = false;
    DatabaseUpgrade upgrade(
        dumps, [](const QString &) {}, [&](const QString &) {
        if (!told)
            say("waiting");
        return told = true; });
    try {
        upgrade.upgradeSuite();
        if (!upgrade.upgradeModule(*GetAutoDBSetting()))
            return 1;
        say("done");
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
