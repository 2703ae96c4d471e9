// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QFunctionPointer>
#include <QLibrary>
#include <QString>

// Loads an extension module at run time. A module whose initialisation fails (it did not register itself in
// KExtensionModules, or was refused there) is unloaded again, and the program goes on without it.
//
// The destructor leaves the module loaded: its classes' meta objects and texts may still be in use anywhere. Unload only
// a module of which no window, record set or other object is alive any more.
class TZACCOUNTINGDATA_EXPORT KModuleLoader
{
public:
    // The name under which the module registers itself.
    explicit KModuleLoader(const QString &moduleName);
    KModuleLoader(const KModuleLoader &) = delete;
    KModuleLoader &operator=(const KModuleLoader &) = delete;

    // Takes the path of the library file. False: the module is not loaded, and errorText says why.
    [[nodiscard]] bool load(const QString &libraryPath);
    bool isLoaded() const { return m_loaded; }
    // False when it was not loaded or the system keeps it.
    bool unload();

    // A function of the loaded module; null when it has none with that name.
    QFunctionPointer resolve(const char *symbol);

    // Persian sentence for the user; empty after a success.
    QString errorText() const { return m_errorText; }
    // The system's error text, for the log; may be empty.
    QString technicalText() const { return m_technicalText; }

private:
    bool fail(const QString &reason, const QString &technical);

    QString m_name;
    QLibrary m_library;
    bool m_loaded = false;
    QString m_errorText;
    QString m_technicalText;
};
