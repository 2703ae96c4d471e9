// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/KConnection.h"

#include <QString>

#include <functional>

class CAutoDBSetting;

// Brings database 0 to the schema of this program and its module. Before the first change of a database that holds
// user data a dump is taken; if it fails, the upgrade stops with nothing changed.
class DatabaseUpgrade
{
public:
    // Called with a Persian text that says what is awaited.
    using Progress = std::function<void(const QString &waitingFor)>;

    // folder is where dumps are.
    DatabaseUpgrade(const QString &backupsFolder, Progress progress);

    // The suite's own tables. Throws CMySQLException, KAccountingError, ServerError.
    void upgradeSuite();
    // The module's tables, from the stored version on; the version reached is stored, also after a failure. False: the
    // module has told the user what failed, and its windows must not be used. Throws as upgradeSuite.
    [[nodiscard]] bool upgradeModule(CAutoDBSetting &module);

    // Path of the dump that was taken; empty when none was needed.
    QString dumpTaken() const { return m_dump; }

private:
    void takeDump();
    bool runModule(CAutoDBSetting &module);

    QString m_backupsFolder;
    Progress m_progress;
    QString m_dump;
};
