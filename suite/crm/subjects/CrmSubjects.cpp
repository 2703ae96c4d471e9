// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/subjects/CrmSubjects.h"

#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/changes/SubjectWords.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/crm/importing/CrmImports.h"
#include "suite/crm/messages/MessageSubjects.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/reminders/CTblAlarm.h"
#include "suite/crm/subjects/PersonStory.h"

using namespace Qt::StringLiterals;

using SubjectWords::captions;
using SubjectWords::words;

void CrmSubjects::enter()
{
    if (RecordSubjects::of(u"Persons"_s))
        return;
    PersonStory::enter();
    CrmImports::enter();
    MessageSubjects::enter();
    const QStringList kinds{u"حقیقی"_s, u"حقیقی (اتباع خارجی)"_s, u"حقوقی"_s};
    RecordSubjects::enter({.table = u"Persons"_s,
                           .kind = u"شخص"_s,
                           .form = u"Persons"_s,
                           .make = RecordSubject::maker<CTblPersons>(),
                           .title =
                               [](KMySQL &record) {
                                   const auto &person = static_cast<const CTblPersons &>(record);
                                   return SubjectWords::titleOf(person.m_iCode, person.m_sName2);
                               },
                           .caption = {},
                           .word = words(QHash<QString, QStringList>{{u"iKind"_s, kinds}, {u"iSex"_s, {u"مرد"_s, u"زن"_s}}, {u"iStatus"_s, SubjectWords::activity()}}),
                           .derived = {u"sName2"_s, u"bNatural"_s},
                           .recordKinds = {RecordKind::Person}});
    RecordSubjects::enter({.table = u"Alarms"_s,
                           .kind = u"یادآوری"_s,
                           .form = {},
                           .make = RecordSubject::maker<CTblAlarm>(),
                           .title = [](KMySQL &record) { return static_cast<const CTblAlarm &>(record).m_sDesc.simplified().left(60); },
                           .caption = captions({{u"iStatus"_s, u"وضعیت"_s}}),
                           .word = words(QHash<QString, QStringList>{{u"iStatus"_s, {u"باز"_s, u"انجام شده"_s}}})});
}
