// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/backup/BackupScratch.h"

#include <functional>

// A backup as the database of this program, which only shows it: on a server of its own, gone with the object.
class BackupView
{
public:
    // Returning false gives up.
    using Progress = std::function<bool(const QString &waitingFor)>;

    // Loads the backup of the office's folder; the passphrase of an encrypted one is the first line of standard input. Settings of the office's
    // program on this computer are copied, so that what is changed of them here changes nothing there. Throws ServerError.
    BackupView(const DataFolder &office, const QString &file, const Progress &progress);
    ~BackupView();

    DataFolder folder() const { return m_scratch.folder(); }
    // From now on nothing can be changed, and a refusal says why.
    void close() const;
    // "نمایش پشتیبان ۱۴۰۵/۰۹/۰۱ ساعت ۱۴:۲۰ - فقط خواندنی"
    QString band() const;

private:
    BackupFile m_file;
    BackupScratch m_scratch;
};
