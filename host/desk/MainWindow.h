// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/recovery/RestoreRequest.h"
#include "host/server/DataFolder.h"
#include "suite/accounting/bin/Bin.h"

#include <QDate>
#include <QMainWindow>
#include <QTimer>

#include <functional>
#include <vector>

class BackupKeeper;
class CAutoDBSetting;
class ReminderBadge;
class SearchBuilding;
class StartPage;
class StatusLine;
class TopBar;
class UndoOffer;
class WorkArea;
class QMenuBar;

// The main window of a logged-in user: a bar with the menus, the tabbed work area, and a status line.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    // module: null when it was not loaded; its menu is then there but disabled. The folder is where backups are.
    MainWindow(const DataFolder &folder, CAutoDBSetting *module, QWidget *parent = nullptr);
    // Ends the pages.
    ~MainWindow() override;

    // The menus in the bar; the base class would put a menu bar of its own in the bar's place.
    QMenuBar *menuBar() const;
    WorkArea *workArea() const { return m_workArea; }
    // The user asked for another login rather than to quit the program.
    bool isSwitchingUser() const { return m_switchingUser; }
    // Refreshes what settings and logins change: the status line and the title.
    void refresh();
    // Shows how its backups stand, and says at once when one fails; the keeper outlives the window's work. What went wrong the day before is said
    // when the window is first at work (tellBackups).
    void showBackups(BackupKeeper &keeper);
    void tellBackups();
    // The window shows a backup and no office of today: a band says so, which also stands in the title.
    void markAsBackup(const QString &band);
    // What the user wants to go back to, after the window was closed for it.
    const RestoreRequest &restoreRequest() const { return m_restore; }
    // A short note in the status line.
    void showNote(const QString &text);
    // Removes from the bin what is over, as far as no other desk does so; once after a login, and each day. An error is logged only.
    void emptyBin();
    // Makes the keys of the search where an office from before has none yet, beside the work.
    void makeSearchable();
    // Shows the user's due reminders, if there are any; once after a login. A database that does not answer is logged only:
    // the user's next action reports it.
    void tellDueReminders();

Q_SIGNALS:
    // The user leaves, and no window is open any more. Code that opened one may still be waiting for its event loop to end, so the
    // pages stay until the window is destroyed.
    void closed();
    // The user asks for the manual by the menu.
    void manualWanted();
    // The user asks for the tour by the menu.
    void tourWanted();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    // An entry of a menu.
    struct Command
    {
        enum Option {
            OnStartPage = 1,
            NeedsModule = 2,
            StartsGroup = 4, // a line before it
            OpensPage = 8,   // brings its page to the front where it is open
            OfUser = 16,     // also offered by the user's button
            OfAdministrators = 32
        };

        QString text;              // & before its letter
        QString icon;              // name in :/icons
        std::function<void()> run; // none: not in this version yet
        QKeySequence shortcut = {};
        int options = 0;
        QString form = {}; // whose access right the entry needs; empty: none
    };

    // An entry that needs a right.
    struct Guarded
    {
        QAction *action = nullptr;
        QString form;
        QString tip; // while the user has the right
    };

    void addMenu(const QString &title, const std::vector<Command> &commands);
    QAction *makeAction(const Command &command);
    void showRights();
    void buildMenus();
    void buildAutoMenu();
    void buildBooksMenu();
    void buildManagementMenu();
    void buildProgramMenu();
    void buildKeys();
    void startClock();
    // Whether the user may see (or change) what concerns the whole office; reports a refusal.
    bool mayManage(bool changes);
    void editSettings();
    void rebuildSearch();
    void takeBackup();
    void manageBackups();
    void tellBackupFailure();
    // Whether this window shows a backup, in which that cannot be done; the user is told.
    bool refusedInBackup();
    void switchUser();
    void undoDeletion(const Bin::Entry &entry);
    void openReminders();
    void showReminders();
    void showKeys();
    void showFirstSteps();
    void showDate();
    void restoreWindow();

    DataFolder m_folder;
    CAutoDBSetting *m_module;
    QList<QAction *> m_startActions;
    QList<Guarded> m_guarded;
    StartPage *m_startPage = nullptr;
    WorkArea *m_workArea = nullptr;
    TopBar *m_bar;
    StatusLine *m_status;
    UndoOffer *m_undo;
    ReminderBadge *m_reminders;
    SearchBuilding *m_searchBuilding;
    QTimer m_clock{this};
    QDate m_binEmptied;
    bool m_switchingUser = false;
    BackupKeeper *m_keeper = nullptr;
    QString m_backupFailure; // to be told
    QString m_band;
    RestoreRequest m_restore;
};
