// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupFile.h"
#include "host/server/DataFolder.h"
#include "suite/utility/frame/KDialog.h"

#include <optional>

class KEdit;

// Asks for the passphrase of an encrypted backup until it is the right one.
class CDlgBackupUnlock : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgBackupUnlock(const BackupFile &file, QWidget *parent = nullptr);

    // What opens the backup: nothing for one that is not encrypted, the folder's own passphrase where that does, else what the user types. Empty
    // optional: the user gave up, or the backup cannot be read, which has been told.
    static std::optional<QString> passphraseFor(const BackupFile &file, const DataFolder &folder, QWidget *parent);

    QString passphrase() const;

protected:
    bool OnOK() override;

private:
    BackupFile m_file;
    KEdit *m_passphrase;
};
