// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/accounting/recovery/BackupRecords.h"
#include "suite/utility/frame/KDialog.h"

#include <QTimer>

class KEdit;
class KExtListCtrl;
class QComboBox;
class QLabel;
class QPushButton;

// Searches a backup for single records, and brings them back with what belongs to them. The backup is open as the database of the
// number that is passed; the window neither opens nor closes it.
class TZACCOUNTING_EXPORT CDlgRestoreRecords : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgRestoreRecords(int backup, QWidget *parent = nullptr);

    KExtListCtrl *list() const { return m_list; }
    // At once, as if the pause after the last letter were over.
    void search();

private:
    void build();
    QString table() const;
    const BackupRecords::Found *selected() const;
    void updateButtons();
    void restoreSelected();
    void showSelected();
    void searchSelecting(qint32 key);

    int m_backup;
    QList<BackupRecords::Found> m_found;
    QComboBox *m_kind;
    KEdit *m_search;
    KExtListCtrl *m_list;
    QLabel *m_count = nullptr;
    QPushButton *m_restore = nullptr;
    QPushButton *m_differences = nullptr;
    QTimer m_typing;
};
