// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/DatabaseInfo.h"

#include "suite/db/records/CTblTemp.h"

using namespace Qt::StringLiterals;

namespace DatabaseInfo {

QString name()
{
    const KConnectionSettings settings = KConnection::settings(0);
    return settings.host.isEmpty() ? settings.database : settings.database + u" @ "_s + settings.host;
}

QString serverVersion()
{
    CTblTemp query;
    query.Open(true, false, true);
    query.ExecuteQuery("SELECT VERSION()");
    return query.GetTextFieldValue(0);
}

}
