// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>
#include <QStringList>

// The host's chain of extension modules. A module registers itself when its library is loaded (a static object of it calls
// attach) and removes itself when the library is unloaded, so a record never outlives the code behind it.
class TZACCOUNTINGDATA_EXPORT KExtensionModules
{
public:
    // Version of the framework that a module is built for: raised when a module built before no longer fits.
    static constexpr int frameworkVersion = 1;

    // Adds a module. False, with the reason in refusal(): it was built for another framework version, it has no name,
    // or a module with that name is there already. The module is then not initialised and its load has failed.
    [[nodiscard]] static bool attach(const QString &name, int builtForVersion);
    // Removes a module; does nothing when it is not there.
    static void detach(const QString &name);

    static bool isAttached(const QString &name);
    // Names in the order in which the modules were attached.
    static QStringList names();

    // Why the last refused module was refused, in Persian; empty when none has been refused since forgetRefusal.
    static QString refusal();
    static void forgetRefusal();
};
