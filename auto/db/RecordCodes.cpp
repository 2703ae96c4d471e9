// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/RecordCodes.h"

#include "suite/accounting/office/NamedLock.h"
#include "suite/db/records/CTblTemp.h"

using namespace Qt::StringLiterals;

QString RecordCodes::emptyMessage()
{
    return u"لطفا کد را وارد نمایید."_s;
}

void RecordCodes::lock(const QString &table, int database)
{
    NamedLock::take(table, database);
}

void RecordCodes::requireFree(const QString &table, int code, int exceptID, int database)
{
    if (code < 1)
        throw Refused(emptyMessage());
    lock(table, database);
    CTblTemp others(database);
    // A locking read sees what others have committed since this transaction began.
    others.ExecuteQuery(
        KSql::formatted("SELECT iID FROM %1 WHERE iCode=%2 AND iID<>%3 LIMIT 1 LOCK IN SHARE MODE", KSql::name(table), code, exceptID));
    if (others.HasResultRow())
        throw Refused(u"کد %1 از آن ردیف دیگری است. لطفا کد دیگری وارد نمایید."_s.arg(code));
}
