// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// Describes database 0.
namespace DatabaseInfo {

// Its name; on an office server, with the server's name.
QString name();
// As the server reports it, such as "10.11.14-MariaDB-0+deb12u2".
QString serverVersion();

}
