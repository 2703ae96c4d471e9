// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/OfficeEvents.h"

#include "suite/accounting/office/CDBSetting.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/db/connection/KTransaction.h"

#include <QScopeGuard>
#include <QSysInfo>

using namespace Qt::StringLiterals;

namespace {

const QString usersTable = u"Users"_s;

// As KChangeLog writes it.
QString thisMachine()
{
    return QSysInfo::machineHostName().left(100);
}

bool mayNoteFailure()
{
    CTblTemp recent;
    recent.Open(true, false, true);
    recent.ExecuteQuery(KSql::formatted("SELECT COUNT(*) FROM Changes WHERE sTable=%1 AND iRecordID=0 AND iKind=%2 AND sComputer=%3 AND date>NOW()-INTERVAL 1 MINUTE",
                                        KSql::quoted(usersTable), static_cast<int>(KChange::Kind::SignInFailed), KSql::quoted(thisMachine())));
    return recent.GetLongFieldValue(0) < OfficeEvents::failedSignInsAMinute;
}

}

void OfficeEvents::noteSignIn(int userID)
{
    // Nobody is at work yet: the entry is the user's own.
    const qint32 author = KChangeLog::author();
    KChangeLog::setAuthor(userID);
    const auto back = qScopeGuard([author] { KChangeLog::setAuthor(author); });
    KTransaction transaction;
    KChangeLog::note(usersTable, userID, KChange::Kind::SignedIn);
    transaction.commit();
}

void OfficeEvents::noteFailedSignIn(const QString &user)
{
    if (!mayNoteFailure())
        return;
    KTransaction transaction;
    const QString shown = user.isEmpty() ? u"نام ناشناخته"_s : user;
    KChangeLog::note(usersTable, 0, KChange::Kind::SignInFailed, 0, {{u"sUser"_s, {}, shown}});
    transaction.commit();
}

void OfficeEvents::noteExport(const QString &what, const QString &how, qint64 rows)
{
    if (GetDBSetting()->GetUserID() == 0)
        return;
    QList<KChangedValue> values{{u"خروجی"_s, {}, what}, {u"به صورت"_s, {}, how}};
    if (rows > 0)
        values.append({u"تعداد ردیف"_s, {}, rows});
    KTransaction transaction;
    KChangeLog::note(u"Exports"_s, 0, KChange::Kind::Exported, 0, values);
    transaction.commit();
}
