// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/history/HistoryFilter.h"

#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/history/HistoryRows.h"
#include "suite/accounting/history/HistoryWords.h"
#include "suite/accounting/lists/FilterClauses.h"
#include "suite/accounting/office/CTblUsers.h"

using namespace Qt::StringLiterals;

namespace {

using FilterKind = KListFilter::Kind;

// Stands for all of them; users' keys and positions begin at 1.
const KListFilter::Choice everything{u"همه"_s, 0};

QList<KListFilter::Choice> users()
{
    QList<KListFilter::Choice> choices{everything};
    CTblUsers set;
    set.SetColumns({u"iID"_s, u"sUser"_s});
    set.m_sort = "sUser";
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        choices.append({set.m_sUser, set.m_iID});
    return choices;
}

// The position in all() says which; several tables have one name where they are parts of one thing.
QList<KListFilter::Choice> subjects()
{
    QList<KListFilter::Choice> choices{everything};
    int position = 0;
    for (const RecordSubject *subject : RecordSubjects::all())
        choices.append({subject->kind, ++position});
    return choices;
}

KSql subjectClause(const QVariant &value, int)
{
    const QList<const RecordSubject *> all = RecordSubjects::all();
    const int position = value.toInt();
    return position > 0 && position <= all.size() ? KSql::formatted(" AND sTable=%1", KSql::quoted(all.at(position - 1)->table)) : KSql();
}

QList<KListFilter::Choice> actions()
{
    QList<KListFilter::Choice> choices{everything};
    for (int kind = 0; kind <= static_cast<int>(KChange::Kind::BackedUp); ++kind)
        choices.append({HistoryWords::action(static_cast<KChange::Kind>(kind)), kind + 1});
    return choices;
}

}

QList<KListFilter> HistoryFilter::table(const KSql &of)
{
    QList<KListFilter> filters{
        {.key = u"readable"_s, .label = {}, .kind = FilterKind::Always, .clause = [](const QVariant &, int) { return KSql(" AND ") + HistoryRows::readable(); }},
        {.key = u"user"_s, .label = u"کاربر :"_s, .kind = FilterKind::Choice, .place = {0, 0}, .clause = FilterClauses::number(" AND iUserID="), .choices = &users, .options = KListFilter::NamesOfOffice},
        {.key = u"action"_s, .label = u"تغییر :"_s, .kind = FilterKind::Choice, .place = {0, 2}, .clause = FilterClauses::position(" AND iKind="), .choices = &actions},
        {.key = u"from"_s, .label = u"از تاریخ :"_s, .kind = FilterKind::Date, .place = {0, 4}, .clause = FilterClauses::from(" AND date>=")},
        {.key = u"to"_s, .label = u"تا تاریخ :"_s, .kind = FilterKind::Date, .place = {0, 6}, .clause = FilterClauses::upTo(" AND date<")},
    };
    if (of.isEmpty())
        filters.insert(1, {.key = u"subject"_s, .label = u"نوع رکورد :"_s, .kind = FilterKind::Choice, .place = {1, 0}, .clause = &subjectClause, .choices = &subjects});
    else
        filters.append({.key = u"record"_s, .label = {}, .kind = FilterKind::Always, .clause = [of](const QVariant &, int) { return KSql(" AND ") + of; }});
    return filters;
}
