// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/web/PublicCondition.h"

using namespace Qt::StringLiterals;

KSql PublicCondition::ticked()
{
    return "EXISTS(SELECT 1 FROM PublicCars web WHERE web.iCarID=ai.iID)";
}

KSql PublicCondition::onOffer()
{
    return ticked() + " AND ai.bSold=0 AND ai.iArchiveUserID=0 AND ai.iStatus=0";
}

QString PublicCondition::caption()
{
    return u"نمایش در وب"_s;
}
