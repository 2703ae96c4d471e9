// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/taxfile/SeasonalHead.h"

// Head of the season's purchases return.
class TZACCOUNTINGDATA_EXPORT CKharid final : public SeasonalHead
{
public:
    explicit CKharid(KAccessDatabase *database);
};
