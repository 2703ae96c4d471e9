// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/recovery/BinFilter.h"

#include "suite/accounting/bin/Bin.h"
#include "suite/accounting/bin/RecordParts.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/lists/FilterClauses.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/db/records/CTblTemp.h"

using namespace Qt::StringLiterals;

namespace {

QList<KListFilter::Choice> kinds()
{
    QList<KListFilter::Choice> choices{{u"همه"_s, 0}};
    int number = 0;
    for (const RecordParts *parts : BinnedRecords::all()) {
        const RecordSubject *subject = RecordSubjects::of(parts->table);
        choices.append({subject ? subject->kind : parts->table, ++number});
    }
    return choices;
}

KSql kindClause(const QVariant &value, int)
{
    const QList<const RecordParts *> all = BinnedRecords::all();
    const int number = value.toInt();
    return number < 1 || number > all.size() ? KSql() : " AND sTable=" + KSql::quoted(all.at(number - 1)->table);
}

}

QList<KListFilter> BinFilter::filters(const KListFilter::Choices &users)
{
    using namespace FilterClauses;
    using K = KListFilter::Kind;
    return {
        {.key = u"kind"_s, .label = u"نوع :"_s, .kind = K::Choice, .place = {0, 0}, .clause = &kindClause, .choices = &kinds, .options = KListFilter::FindGoesHere},
        {.key = u"user"_s, .label = u"کاربر :"_s, .kind = K::Choice, .place = {0, 2}, .clause = number(" AND iUserID="), .choices = users, .options = KListFilter::NamesOfOffice},
        {.key = u"from"_s, .label = u"از تاریخ :"_s, .kind = K::PlainDate, .place = {0, 4}, .clause = from(" AND date>=")},
        {.key = u"to"_s, .label = u"تا تاریخ :"_s, .kind = K::PlainDate, .place = {0, 6}, .clause = upTo(" AND date<")},
        {.key = u"title"_s, .label = u"عنوان :"_s, .kind = K::Text, .place = {1, 0}, .clause = part("sTitle"), .maxLength = 100},
    };
}

QList<KListFilter::Choice> BinFilter::users(int database)
{
    QList<KListFilter::Choice> choices{{u"همه"_s, 0}};
    CTblTemp names(database);
    names.Open(true, false, true);
    names.ExecuteQuery("SELECT u.iID,COALESCE(NULLIF(u.sName,''),u.sUser) AS name FROM Users u WHERE u.iID IN (SELECT iUserID FROM Bin) ORDER BY name");
    for (; names.HasResultRow(); names.MoveNextResult())
        choices.append({names.GetTextFieldValue(1), names.GetLongFieldValue(0)});
    return choices;
}

KSql BinFilter::own(int database)
{
    return Bin::isAdministrator(database) ? KSql() : KSql::formatted(" AND iUserID=%1", GetDBSetting()->GetUserID());
}
