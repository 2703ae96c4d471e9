// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/subjects/PersonStory.h"

#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/timeline/StorySources.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/reminders/CTblAlarm.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

std::optional<StoryHead> headOfPerson(qint32 key, int database)
{
    CTblPersons person(database);
    if (!person.IsRecordExist(u"iID"_s, key))
        return {};
    StoryHead head;
    head.title = person.m_sName2.simplified();
    head.second = u"کد %1"_s.arg(person.m_iCode);
    head.facts = {{u"موبایل"_s, person.m_sMobile}, {u"تلفن"_s, person.m_sTel}, {u"کد ملی"_s, person.m_sNationalCode}, {u"نام پدر"_s, person.m_sFatherName}, {u"تاریخ تولد"_s, shamsiText(person.m_dateBirth.date())}, {u"آدرس"_s, person.m_sAddress.simplified()}};
    return head;
}

// One's own; an administrator sees everybody's.
QList<StoryColumns> reminders(const StoryScope &scope)
{
    const KSql whose = GetDBSetting()->IsAdmin() ? KSql("TRUE") : KSql::formatted("a.iUserID=%1", GetDBSetting()->GetUserID());
    return {{.key = "a.iID", .when = "a.date", .numbers = {"a.iStatus"}, .texts = {"a.sDesc"}, .user = "a.iUserID", .from = KSql::formatted("Alarms a WHERE %1 AND %2 AND a.date IS NOT NULL ORDER BY a.date DESC", scope.named("a."), whose)}};
}

std::optional<StoryEvent> tellReminder(const StoryRow &row)
{
    const bool isOwn = row.user == GetDBSetting()->GetUserID();
    const bool isDone = row.numbers[0] != CTblAlarm::statusOpen;
    return StoryEvent{.kind = StoryEvent::Kind::Reminder,
                      .tone = isDone ? StoryEvent::Tone::Neutral : StoryEvent::Tone::Info,
                      .title = u"یادآوری: %1"_s.arg(row.texts[0].simplified()),
                      .line = isDone ? u"انجام شد"_s : u"باز"_s,
                      .table = isOwn ? u"Alarms"_s : QString(),
                      .key = isOwn ? row.key : 0};
}

}

void PersonStory::enter()
{
    StorySources::enter(StorySubject{.table = u"Persons"_s,
                                     .caption = u"سرگذشت شخص"_s,
                                     .entered = u"شخص ثبت شد"_s,
                                     .recordKind = RecordKind::Person,
                                     .first = {u"sMobile"_s, u"sTel"_s, u"sNationalCode"_s},
                                     .head = &headOfPerson});
    StorySources::enter(StorySource{.id = u"reminders"_s, .form = {}, .columns = &reminders, .tell = &tellReminder});
}
