// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

// Shows the wait cursor for as long as it lives.
class TZUTILITY_EXPORT KWaitCursor
{
public:
    KWaitCursor();
    ~KWaitCursor();
    KWaitCursor(const KWaitCursor &) = delete;
    KWaitCursor &operator=(const KWaitCursor &) = delete;
};
