// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/recovery/Backup.h"

#include "host/frame/StartupClock.h"
#include "host/keeping/BackupJob.h"
#include "host/keeping/BackupKeeper.h"
#include "host/keeping/BackupProgress.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/frame/KProcess.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace Backup {

QString takeNow(const DataFolder &folder, BackupKeeper *keeper, QWidget *parent)
{
    const std::shared_ptr<BackupJob> job = BackupKeeper::newJob(folder, BackupManifest::Reason::ByHand);
    BackupProgress window(u"پشتیبان‌گیری"_s, u"در حال پشتیبان‌گیری از پایگاه داده …"_s, parent);
    window.run([job](const BackupProgress::Progress &progress) { job->run(progress); });
    if (!job->file) {
        qCWarning(lcHost).noquote() << "backup:" << job->detail;
        if (!job->cancelled)
            g_pDlgWarning->Show(job->problem, parent);
        return {};
    }
    QString text = u"پشتیبان پایگاه داده ساخته شد:\n%1"_s.arg(ServerError::shownPath(job->file->path()));
    if (!job->secondProblem.isEmpty())
        text += u"\nدر پوشه دوم نوشته نشد. %1"_s.arg(job->secondProblem);
    if (keeper)
        keeper->adopt(*job);
    g_pDlgMessage->Show(text, parent);
    return job->file->path();
}

void showFolder(const QString &folder, QWidget *parent)
{
    QDir().mkpath(folder);
    if (!KProcess::Execute(u"Explorer"_s, folder))
        g_pDlgMessage->Show(u"پشتیبان‌ها در این پوشه هستند:\n%1"_s.arg(ServerError::shownPath(folder)), parent);
}

}
