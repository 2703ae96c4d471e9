// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/frame/KDialog.h"

#include <QTimer>

class BackupKeeper;
class QProgressBar;

// The backup at the end of the program, and the way not to wait for it.
class CDlgClosingBackup : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgClosingBackup(BackupKeeper &keeper, QWidget *parent = nullptr);

    // Takes the backup that is due, or waits for one that is being taken. Returns when that has ended; shows itself when it takes longer
    // than a second. What goes wrong is told.
    static void run(BackupKeeper &keeper);

    void reject() override;

private:
    void showProgress();

    BackupKeeper &m_keeper;
    QProgressBar *m_bar;
    QTimer m_clock;
};
