// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// Where a server listens. host is a name or an address, one of six parts without brackets.
struct KServerAddress
{
    QString host;
    unsigned int port = 3306;

    bool operator==(const KServerAddress &) const = default;
};
