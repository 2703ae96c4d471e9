// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

class KDialogTabPage;

// Where tab pages go: the host's tabbed work area.
class TZUTILITY_EXPORT KTabHost
{
public:
    virtual ~KTabHost() = default;
    // Takes ownership of the page and shows it as a tab.
    virtual void addPage(KDialogTabPage *page) = 0;
};
