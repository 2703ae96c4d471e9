// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/subjects/CrmWindows.h"

#include "suite/accounting/books/CDlgAccountDocs.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/records/RecordWindows.h"
#include "suite/accounting/timeline/CDlgStory.h"
#include "suite/crm/persons/CDlgAddPerson.h"
#include "suite/crm/persons/CDlgPersons.h"
#include "suite/crm/persons/OfficeLetterhead.h"
#include "suite/crm/reminders/CDlgAddAlarm.h"
#include "suite/crm/reminders/CDlgAlarms.h"

using namespace Qt::StringLiterals;

namespace {

void openPerson(qint32 key, bool edits, QWidget *parent)
{
    if (edits)
        CDlgAddPerson::Edit(parent, key);
    else
        CDlgAddPerson::Show(parent, key);
}

void showPersons(const KListRequest &request)
{
    auto *page = new CDlgPersons;
    page->setRequest(request);
    GetDBSetting()->AddDialogToTabPage_(page, 1, 0);
}

void showReminders(const KListRequest &request)
{
    auto *page = new CDlgAlarms;
    page->setRequest(request);
    GetDBSetting()->AddDialogToTabPage_(page, 1, 0);
}

}

void CrmWindows::enter()
{
    Letterhead::setSource(&OfficeLetterhead::read);
    // Everybody may see to their own.
    RecordWindows::enter({.table = u"Alarms"_s,
                          .icon = u":/icons/reminder.svg"_s,
                          .open = [](qint32 key, bool, QWidget *parent) { CDlgAddAlarm::Edit(key, parent); },
                          .list = &showReminders});
    RecordWindows::enter({.table = u"Persons"_s,
                          .form = u"Persons"_s,
                          .icon = u":/icons/user.svg"_s,
                          .open = &openPerson,
                          .list = &showPersons,
                          .actions = {{.id = u"statement"_s, .text = u"صورتحساب"_s, .icon = u":/icons/document.svg"_s, .form = u"Documents"_s, .run = &CDlgAccountDocs::ShowPerson}}});
    CDlgStory::offer(u"Persons"_s, u"Persons"_s);
}
