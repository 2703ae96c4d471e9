// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

class KTabHost;

// A tab page as seen by code that knows no windows: it can be asked, shown and destroyed.
class TZUTILITY_EXPORT KTabPage
{
public:
    virtual ~KTabPage() = default;
    // Whether the user may see the page; a refusal has told the user why.
    virtual bool OnAccess() = 0;
    // Goes to the host, which owns the page from then on.
    virtual void showIn(KTabHost &host) = 0;
};
