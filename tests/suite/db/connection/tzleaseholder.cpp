// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/KConnection.h"
#include "suite/db/connection/KLease.h"

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

// Reads socket, account, password, database and the name of a lease, a line each; takes the lease, says "taken" or "refused", and then only
// waits until it is killed or its input ends.
int main()
{
    KConnectionSettings settings;
    settings.socketPath = nextLine();
    settings.user = nextLine();
    settings.password = nextLine();
    settings.database = nextLine();
    KConnection::configure(0, settings);
    try {
        const std::unique_ptr<KLease> lease = KLease::tryTake(nextLine(), QStringLiteral("holder"));
        std::puts(lease ? "taken" : "refused");
        std::fflush(stdout);
        while (std::getchar() != EOF) {
        }
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
