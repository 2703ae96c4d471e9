// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/taxfile/CKharid_Detail.h"

using namespace Qt::StringLiterals;

CKharid_Detail::CKharid_Detail(KAccessDatabase *database)
    : SeasonalDetail(database, u"Kharid_Detail"_s)
{
}
