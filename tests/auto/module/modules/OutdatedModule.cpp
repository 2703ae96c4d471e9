// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KExtensionModules.h"

using namespace Qt::StringLiterals;

// A module that was built for another framework: its initialisation is refused.
namespace {

const bool attached = KExtensionModules::attach(u"Outdated"_s, KExtensionModules::frameworkVersion + 1);

}

// Keeps the record from being left out, and shows whether the refused module's code can still be reached.
extern "C" Q_DECL_EXPORT bool isAttached()
{
    return attached;
}
