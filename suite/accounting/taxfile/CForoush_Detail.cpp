// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/taxfile/CForoush_Detail.h"

CForoush_Detail::CForoush_Detail(KAccessDatabase *database)
    : SeasonalDetail(database, QStringLiteral("Foroush_Detail"))
{
}
