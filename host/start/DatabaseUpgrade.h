// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KConnection.h"

#include <QString>

#include <functional>
#include <memory>

class CAutoDBSetting;
class KLease;

// Brings database 0 to the schema of this program and its module. Before the first change of a database that holds
// user data a dump is taken; if it fails, the upgrade stops with nothing changed.
//
// Of the programs on the database one upgrades (the lease "upgrade"), the others wait for it and then look again at what is left to do.
// Each version is stored as it is reached, and the mark of an unfinished upgrade before the first change, so that the next start finishes
// what a killed program began. A table that holds rows is never dropped.
class DatabaseUpgrade
{
public:
    // Called with a Persian text that says what is awaited.
    using Progress = std::function<void(const QString &waitingFor)>;
    // Called about twenty times a second while another program upgrades, with a Persian text that names who. False: the user gives up.
    using Waiting = std::function<bool(const QString &waitingFor)>;

    // folder is where dumps are. Without waiting, nobody can give up.
    DatabaseUpgrade(const QString &backupsFolder, Progress progress, Waiting waiting = {});

    // How the user goes back to a backup, in Persian sentences; ends the message about a database that must not be upgraded.
    void setWayBack(const QString &sentences) { m_wayBack = sentences; }

    // The suite's own tables. Throws CMySQLException, KAccountingError, ServerError: VersionLost for a database whose tables hold rows but
    // whose version is gone, Cancelled when the user gave up waiting.
    void upgradeSuite();
    // The module's tables, from the stored version on. False: the module has told the user what failed, and its windows must not be used.
    // Throws as upgradeSuite.
    [[nodiscard]] bool upgradeModule(CAutoDBSetting &module);

    // Takes the documents that are in no kept sum of their accounts into them, where there are many: those of an office from before those sums,
    // of a filling in one go, or of a run that was broken off. Beside others that work. Throws as upgradeSuite.
    void sumUpBooks();

    // Path of the dump that was taken; empty when none was needed.
    QString dumpTaken() const { return m_dump; }

private:
    void takeDump();
    std::unique_ptr<KLease> takeTurn();
    void waitForTurn();
    [[nodiscard]] bool runModule(CAutoDBSetting &module);
    bool callModule(CAutoDBSetting &module, KLease *lease);
    void prepareModuleChange();
    void closeModuleUpgrade();
    void refuse(const QString &what) const;

    QString m_backupsFolder;
    Progress m_progress;
    Waiting m_waiting;
    QString m_wayBack;
    QString m_dump;
};
