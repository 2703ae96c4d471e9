// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/taxfile/CKharid.h"

using namespace Qt::StringLiterals;

CKharid::CKharid(KAccessDatabase *database)
    : SeasonalHead(database, u"Kharid"_s)
{
}
