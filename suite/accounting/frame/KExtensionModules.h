// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>
#include <QStringList>

// The host's chain of extension modules. A module enters itself when its library is loaded (a static object of it calls
// attach) and takes itself off when the library is unloaded, so a record never outlives the code behind it.
class TZACCOUNTINGDATA_EXPORT KExtensionModules
{
public:
    // Version of the framework that a module is built for: raised when a module built before no longer fits.
    static constexpr int frameworkVersion = 1;

    // Enters a module. False, with the reason in refusal(): it was built for another framework version, it has no name,
    // or a module of that name is there already. The module is then not initialised and its load has failed.
    [[nodiscard]] static bool attach(const QString &name, int builtForVersion);
    // Takes a module off; one that is not there changes nothing.
    static void detach(const QString &name);

    static bool isAttached(const QString &name);
    // Names in the order in which the modules came.
    static QStringList names();

    // Why the last refused module was refused, in Persian; empty when none was since forgetRefusal.
    static QString refusal();
    static void forgetRefusal();
};
