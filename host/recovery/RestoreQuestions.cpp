// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/recovery/RestoreQuestions.h"

#include "host/backup/BackupPointInTime.h"
#include "host/keeping/BackupProgress.h"
#include "host/recovery/BackupListing.h"
#include "host/server/BinaryLog.h"
#include "suite/accounting/frame/KMessageDialog.h"

using namespace Qt::StringLiterals;

std::optional<RestoreExtent> RestoreQuestions::extent(const BackupFile &file, const DataFolder &folder, QWidget *parent)
{
    RestoreExtent chosen;
    if (!file.manifest() || file.manifest()->logFile.isEmpty())
        return chosen;
    {
        // All of the log is read, which may be gigabytes.
        BackupProgress window(u"بازگرداندن پشتیبان"_s, u"خواندن تغییرهای ثبت شده پس از پشتیبان…"_s, parent);
        window.run([&](const BackupProgress::Progress &) { chosen.reach = BackupPointInTime(folder).reach(file); });
    }
    if (!chosen.reach.possible) {
        // Where the office has since given up its log, or it is not the private server's, there is nothing to tell.
        if (!BinaryLog(folder).isWanted())
            chosen.reach.problem.clear();
        return chosen;
    }
    QString question = u"تغییرهای پس از پشتیبان %1 نیز ثبت شده است. "_s.arg(BackupListing::whenText(file));
    question += chosen.reach.upToNow ? u"با آنها می‌توان تا آخرین دقیقه بازگشت."_s : chosen.reach.words();
    question += u"\nبله: تا آخرین دقیقه‌ای که ثبت شده است\nخیر: فقط تا زمان پشتیبان\nتا آخرین دقیقه بازگردانده شود؟"_s;
    const KMessageDialog::Answer answer = g_pDlgYesNo->AskOrCancel(question, parent);
    if (answer == KMessageDialog::Cancel)
        return std::nullopt;
    chosen.lastMinute = answer == KMessageDialog::Yes;
    return chosen;
}
