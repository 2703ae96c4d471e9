// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/recovery/BackupListing.h"
#include "host/recovery/RestoreRequest.h"
#include "host/server/DataFolder.h"
#include "suite/utility/frame/KDialog.h"

class KEmptyState;
class KExtListCtrl;
class QLabel;
class QPushButton;

// The database of the data folder is damaged: what is, and what the office can go back to, with the proved backups first. The damaged one is put aside,
// never overwritten. No server runs on the folder meanwhile, and the caller holds its lock.
class CDlgDamage : public KDialog
{
    Q_OBJECT

public:
    // what: one or more sentences.
    CDlgDamage(const DataFolder &folder, const QString &what, QWidget *parent = nullptr);

    // Accepted: the folder holds a whole database again, which has been told.
    KExtListCtrl *list() const { return m_list; }
    // Shows the backups of another folder, such as that of a disk which was kept apart.
    void showFolder(const QString &folder);
    // Asks, and puts the selected backup in the place of the damaged database.
    void restoreSelected();

private:
    void build(const QString &what);
    void fill();
    void chooseFolder();
    bool restore(const RestoreRequest &request);

    DataFolder m_folder;
    QString m_shownFolder;
    QList<BackupListing::Entry> m_entries;
    QLabel *m_place;
    KExtListCtrl *m_list;
    KEmptyState *m_empty = nullptr;
    QPushButton *m_restore = nullptr;
};
