// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// What database 0 is, in words.
namespace DatabaseInfo {

// Its name; of an office server with the server's.
QString name();
// As the server tells it, such as "10.11.14-MariaDB-0+deb12u2".
QString serverVersion();

}
