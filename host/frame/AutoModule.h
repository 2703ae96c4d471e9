// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/frame/KModuleLoader.h"

class CAutoDBSetting;

// The dealership module as the host holds it.
class AutoModule
{
public:
    AutoModule();

    // The library's folder: the given one, or where the program is installed or built. False: the program goes on without
    // the module, and errorText says so in one Persian sentence.
    [[nodiscard]] bool load(const QString &folder);
    // No window of the module may exist any more.
    void unload();

    // Null while the module is not loaded.
    CAutoDBSetting *entry() const { return m_entry; }
    QString errorText() const { return m_errorText; }

private:
    KModuleLoader m_loader;
    CAutoDBSetting *m_entry = nullptr;
    QString m_errorText;
};
