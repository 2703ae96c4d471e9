// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/taxfile/CForoush.h"

using namespace Qt::StringLiterals;

CForoush::CForoush(KAccessDatabase *database)
    : SeasonalHead(database, u"Foroush"_s)
{
}
