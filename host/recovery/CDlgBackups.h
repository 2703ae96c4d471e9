// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/recovery/BackupListing.h"
#include "host/recovery/RestoreRequest.h"
#include "host/server/DataFolder.h"
#include "suite/utility/frame/KDialog.h"

class BackupKeeper;
class KEmptyState;
class KExtListCtrl;
class KListCommands;
class QLabel;
struct KListCommand;

// The backups of the office ("پشتیبان‌ها"): when, why, whether each one is proved; to take, verify, look into, restore and delete them.
// For administrators, which is asked again at each command.
class CDlgBackups : public KDialog
{
    Q_OBJECT

public:
    // keeper: takes them meanwhile by itself, and is told of those that are taken here; null: nobody does.
    CDlgBackups(const DataFolder &folder, BackupKeeper *keeper, QWidget *parent = nullptr);

    // Shows the window to an administrator; says why not otherwise. What is to be restored, once this window is closed.
    static RestoreRequest choose(const DataFolder &folder, BackupKeeper *keeper, QWidget *parent);
    RestoreRequest request() const { return m_request; }

    KExtListCtrl *list() const { return m_list; }
    // Runs the command as its button would. False when it may not run now.
    bool runCommand(QStringView id);
    void refill();

private:
    void build();
    std::vector<KListCommand> commands();
    const BackupListing::Entry *selected() const;
    void takeNow();
    void verifySelected();
    void lookInto();
    void restoreSelected();
    void restoreRecords();
    void openFolder();
    void removeSelected();
    void print();
    void guarded(const std::function<void()> &work);
    bool isIdle();
    // Nothing: the user gave up.
    std::optional<QString> passphraseOf(const BackupFile &file);

    DataFolder m_folder;
    BackupKeeper *m_keeper;
    QList<BackupListing::Entry> m_entries;
    RestoreRequest m_request;
    KExtListCtrl *m_list;
    KEmptyState *m_empty = nullptr;
    KListCommands *m_commands = nullptr;
    QLabel *m_count;
};
