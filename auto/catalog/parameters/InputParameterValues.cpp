// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/parameters/InputParameterValues.h"

#include "suite/accounting/lists/FilterClauses.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/utility/values/SearchPattern.h"

using namespace Qt::StringLiterals;

namespace InputParameterValues {

bool isNameTaken(const QString &name, int exceptID)
{
    if (!SearchPattern::isStorable(name))
        return false;
    CTblItems items;
    items.SetColumns({u"iID"_s});
    items.SetLimit(1);
    // To the letter first, and then in any other way of writing it.
    for (const KSql &isName : {"sName=" + KSql::quoted(name), FilterClauses::isSame("sName", name)}) {
        items.m_filter = exceptID != 0 ? KSql::formatted("iID<>%1 AND ", exceptID) : KSql();
        items.m_filter += isName;
        items.Open(true, true, true);
        if (!items.IsEOF())
            return true;
    }
    return false;
}

void requireStorable(const QString &name)
{
    CTblItems item;
    item.m_sName = name;
    item.requireFits(u"sName");
}

}
