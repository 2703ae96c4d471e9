// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KExtensionModules.h"

// A module that needs a function which no library has.
extern "C" int functionOfALibraryThatIsNotThere();

extern "C" Q_DECL_EXPORT int needsIt()
{
    return functionOfALibraryThatIsNotThere() + KExtensionModules::frameworkVersion;
}
