// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/OfficeClosing.h"

#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KChangeLog.h"

using namespace Qt::StringLiterals;

namespace {

KSql closedStatement()
{
    return KSql::formatted("SELECT sValue FROM Properties WHERE sSection=%1 AND sKey=%2 LOCK IN SHARE MODE",
                           KSql::quoted(OfficeSettings::closed.section.toString()), KSql::quoted(OfficeSettings::closed.key.toString()));
}

}

void OfficeClosing::expect(int database)
{
    KReadAhead::expect(closedStatement(), database);
}

void OfficeClosing::requireOpen(int database)
{
    if (OfficeSettings::isOnlyRead())
        throw KAccountingError(OfficeSettings::closedMessage());
    CTblTemp setting(database);
    setting.Open(true, false, true);
    setting.ExecuteQuery(closedStatement());
    if (!setting.HasResultRow() || setting.GetTextFieldValue(0).toInt() == 0)
        return;
    // A closed database takes no other setting, so the section's last change is the closing.
    const QString section = u"Properties:"_s + OfficeSettings::closed.section.toString();
    if (!KChangeLog::last(section, 0, database))
        throw KAccountingError(OfficeSettings::closedMessage());
    throw KAccountingError(u"%1 این پایگاه داده را بسته است و تغییر آن ممکن نیست. چیزی ذخیره نشد."_s.arg(
        RowChanged::lastChange(section, 0, database)));
}
