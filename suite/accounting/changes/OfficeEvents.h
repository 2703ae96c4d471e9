// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>

// What happens beside the records and is part of the history all the same. Each joins the caller's transaction. Throws CMySQLException.
namespace OfficeEvents {

TZACCOUNTINGDATA_EXPORT void noteSignIn(int userID);
// user: the login name of somebody who is known, never a text that may be a password in the wrong field; empty: nobody known. Of one computer only
// so many a minute are noted, so that nobody fills the table by trying.
TZACCOUNTINGDATA_EXPORT void noteFailedSignIn(const QString &user);
inline constexpr int failedSignInsAMinute = 10;
// Data left the program. what: the list, report or file; how: "PDF", "چاپ"; rows: 0 where they do not count. Nothing without a user.
TZACCOUNTINGDATA_EXPORT void noteExport(const QString &what, const QString &how, qint64 rows = 0);

}
