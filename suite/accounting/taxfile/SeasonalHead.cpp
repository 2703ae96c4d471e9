// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/taxfile/SeasonalHead.h"

SeasonalHead::SeasonalHead(KAccessDatabase *database, const QString &role)
    : KRecordset(database, role)
{
    bind(u"guid", &m_sGuid);
    bind(u"season", &m_iSeason);
    bind(u"year", &m_iYear);
}
