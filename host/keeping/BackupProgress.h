// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QProgressDialog>

#include <atomic>
#include <functional>

// The window that waits for work on a backup, with a bar and a way out. Nothing else of the program takes input meanwhile.
class BackupProgress : public QProgressDialog
{
    Q_OBJECT

public:
    // Called with the bytes done and those expected, 0 when that is unknown; false: the user wants it to end.
    using Progress = std::function<bool(qint64 done, qint64 expected)>;

    BackupProgress(const QString &title, const QString &text, QWidget *parent);

    // Does the work on a thread of its own, where it has connections of its own, and returns when it has ended. Throws what it throws.
    void run(const std::function<void(const Progress &)> &work);
    // For work that belongs to this thread: shows how far it is and lets events be handled.
    Progress here();
    // Waits until ended() is true, which is asked a few times a second. False: the user wants it to end.
    bool waitFor(const std::function<bool()> &ended);

private:
    void showDone(qint64 done, qint64 expected);
};
