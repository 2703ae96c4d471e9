// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/PersonParts.h"

#include "suite/accounting/bin/RecordParts.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/db/records/CTblTemp.h"

using namespace Qt::StringLiterals;

namespace {

// One of two with the same national code would be the other one's double.
void settlePerson(KWholeRow &person, int database, QStringList &notes)
{
    const QString code = person.text(u"sNationalCode");
    if (code.isEmpty())
        return;
    CTblTemp others(database);
    others.ExecuteQuery(KSql::formatted("SELECT sName2 FROM Persons WHERE sNationalCode=%1 LIMIT 1 LOCK IN SHARE MODE", KSql::quoted(code)));
    if (!others.HasResultRow())
        return;
    person.set(u"sNationalCode", QString());
    notes.append(u"کد ملی %1 اکنون از آن «%2» است؛ شخص بدون کد ملی بازگشت."_s.arg(code, others.GetTextFieldValue(0)));
}

}

void PersonParts::enter()
{
    const QString table = u"Persons"_s;
    if (BinnedRecords::of(table))
        return;
    BinnedRecords::enter({.table = table,
                          .form = table,
                          .references = {},
                          .parts = {RecordParts::files(RecordKind::Person), RecordParts::filedPapers(RecordKind::Person), RecordParts::customValues(RecordKind::Person),
                                    RecordParts::byKind(u"Alarms"_s, u"یادآوری"_s, RecordKind::Person), RecordParts::byKind(u"FollowUps"_s, u"پیگیری"_s, RecordKind::Person)},
                          .code = u"iCode"_s,
                          .known = {u"sName2"_s, u"sNationalCode"_s},
                          .settle = &settlePerson});
}
