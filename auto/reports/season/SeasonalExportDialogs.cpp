// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/SeasonalExportDialogs.h"

#include "suite/accounting/changes/OfficeEvents.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/reports/ReportProgressWindow.h"
#include "suite/utility/frame/FolderChoice.h"
#include "suite/utility/frame/KProcess.h"
#include "suite/utility/frame/KWaitCursor.h"

using namespace Qt::StringLiterals;

namespace {

QString warningText(SeasonalExport::Outcome outcome)
{
    switch (outcome) {
    case SeasonalExport::Outcome::TemplateMissing:
        return u"فایل اکسس مالیات موجود نیست : TTMS.mdb"_s;
    case SeasonalExport::Outcome::CompanyEmpty:
        return u"ابتدا مشخصات شرکت یا فروشگاه خود را از طریق دکمه مشخصات شرکت/فروشگاه پر نمایید."_s;
    case SeasonalExport::Outcome::CopyFailed:
        return u"امکان کپی فایل نیست."_s;
    case SeasonalExport::Outcome::DiskFull:
        return u"فضای دیسک این پوشه پر است. لطفا فضا آزاد نمایید یا پوشه دیگری انتخاب کنید."_s;
    case SeasonalExport::Outcome::Cancelled:
    case SeasonalExport::Outcome::Done:
        break;
    }
    return {};
}

// Shows what went wrong, if anything did; stopping is what the user wanted.
bool isDone(SeasonalExport::Outcome outcome, QWidget *parent)
{
    const QString text = warningText(outcome);
    if (!text.isEmpty())
        g_pDlgWarning->Show(text, parent);
    return outcome == SeasonalExport::Outcome::Done;
}

}

bool exportSeasonWithDialogs(QWidget *parent, const SeasonalExport::Report &report, const QString &moduleFolder)
{
    const SeasonalExport task(report, moduleFolder);
    if (!isDone(task.check(), parent))
        return false;
    const QString folder = ShowBrowseForFolder(parent, u": پوشه مورد نظر خود را انتخاب نمایید"_s);
    if (folder.isEmpty())
        return false;
    SeasonalExport::Outcome outcome = SeasonalExport::Outcome::Done;
    {
        const KWaitCursor wait;
        ReportProgressWindow progress(u"در حال نوشتن فایل مالیات ..."_s, parent);
        outcome = task.run(folder, progress.callback());
    }
    if (!isDone(outcome, parent))
        return false;
    OfficeEvents::noteExport(u"گزارش فصلی"_s, u"فایل مالیات"_s, report.rowCount);
    g_pDlgMessage->Show(u"انجام شد."_s, parent);
    KProcess::Execute(u"Explorer"_s, folder);
    return true;
}
