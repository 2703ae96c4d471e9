// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/taxfile/SeasonalDetail.h"

// A line of the season's sales return.
class TZACCOUNTINGDATA_EXPORT CForoush_Detail final : public SeasonalDetail
{
public:
    explicit CForoush_Detail(KAccessDatabase *database);
};
