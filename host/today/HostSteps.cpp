// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/HostSteps.h"

#include "host/administration/CDlgSettings.h"
#include "host/keeping/BackupsHere.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/records/RecordWindows.h"
#include "suite/accounting/today/FirstStepList.h"
#include "suite/crm/persons/CompanyDetails.h"

using namespace Qt::StringLiterals;

namespace {

void openSettings(const DataFolder &folder, QWidget *parent)
{
    if (OfficeSettings::isOnlyRead())
        g_pDlgWarning->Show(OfficeSettings::closedMessage(), parent);
    else
        CDlgSettings(folder, parent).exec();
}

}

void HostSteps::enter(const DataFolder &folder)
{
    const auto settings = [folder](QWidget *parent) { openSettings(folder, parent); };
    FirstStepList::enter({.id = u"company"_s,
                          .place = 10,
                          .title = u"مشخصات نمایشگاه"_s,
                          .line = u"نام، تلفن و نشانی که روی قرارداد چاپ می‌شود"_s,
                          .form = u"Settings"_s,
                          .right = KSecurity::Modify,
                          .section = CompanyDetails::section(),
                          .isSet = [](const OfficeSettings &stored) { return !CompanyDetails::of(stored).isEmpty(); },
                          .open = settings});
    FirstStepList::enter({.id = u"person"_s,
                          .place = 40,
                          .title = u"نخستین شخص"_s,
                          .line = u"فروشنده یا خریداری که با او کار می‌کنید"_s,
                          .form = u"Persons"_s,
                          .rows = "EXISTS (SELECT 1 FROM Persons)",
                          .open = [](QWidget *) { RecordWindows::openList(u"Persons"_s, {}); }});
    FirstStepList::enter({.id = u"backup"_s,
                          .place = 70,
                          .title = u"پشتیبان‌گیری"_s,
                          .line = u"جایی بیرون از این رایانه انتخاب کنید"_s,
                          .form = u"Settings"_s,
                          .right = KSecurity::Modify,
                          .isSet = [](const OfficeSettings &) { return !BackupsHere::secondFolder().isEmpty(); },
                          .open = settings});
}
