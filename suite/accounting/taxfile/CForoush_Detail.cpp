// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/taxfile/CForoush_Detail.h"

using namespace Qt::StringLiterals;

CForoush_Detail::CForoush_Detail(KAccessDatabase *database)
    : SeasonalDetail(database, u"Foroush_Detail"_s)
{
}
