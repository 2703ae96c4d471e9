// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/keeping/BackupPassphrase.h"
#include "suite/utility/frame/KDialog.h"

class FormGrid;
class KEdit;

// Sets, changes or removes the passphrase of the backups to come.
class CDlgBackupPassphrase : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgBackupPassphrase(const DataFolder &folder, QWidget *parent = nullptr);

protected:
    bool OnOK() override;

private:
    KEdit *addLine(FormGrid *grid, const QString &caption);
    void removePassphrase();

    BackupPassphrase m_passphrase;
    KEdit *m_first = nullptr;
    KEdit *m_repeated = nullptr;
};
