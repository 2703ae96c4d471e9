// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/subjects/PersonStory.h"

#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/timeline/StorySources.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/reminders/CTblAlarm.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

StoryHead headOfPerson(qint32 key, int database)
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
QList<StoryEvent> readReminders(const StoryScope &scope, int limit, int database)
{
    const KSql whose = GetDBSetting()->IsAdmin() ? KSql("TRUE") : KSql::formatted("a.iUserID=%1", GetDBSetting()->GetUserID());
    CTblTemp rows(database);
    rows.Open(true, false, true);
    rows.ExecuteQuery(KSql::formatted("SELECT a.date,a.sDesc,a.iStatus,COALESCE(NULLIF(u.sName,''),u.sUser),a.iID,a.iUserID FROM Alarms a LEFT JOIN Users u ON u.iID=a.iUserID"
                                      " WHERE %1 AND %2 AND a.date IS NOT NULL ORDER BY a.date DESC LIMIT %3",
                                      scope.named("a."), whose, limit));
    QList<StoryEvent> events;
    for (; rows.HasResultRow(); rows.MoveNextResult()) {
        const bool isOwn = rows.GetLongFieldValue(5) == GetDBSetting()->GetUserID();
        const bool isDone = rows.GetLongFieldValue(2) != CTblAlarm::statusOpen;
        events.append({.kind = StoryEvent::Kind::Reminder,
                       .when = rows.GetDateFieldValue(0),
                       .tone = isDone ? StoryEvent::Tone::Neutral : StoryEvent::Tone::Info,
                       .title = u"یادآوری: %1"_s.arg(rows.GetTextFieldValue(1).simplified()),
                       .line = isDone ? u"انجام شد"_s : u"باز"_s,
                       .user = rows.GetTextFieldValue(3),
                       .table = isOwn ? u"Alarms"_s : QString(),
                       .key = isOwn ? rows.GetLongFieldValue(4) : 0});
    }
    return events;
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
    StorySources::enter(StorySource{u"reminders"_s, {}, &readReminders});
}
