// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/PersonSearch.h"

#include "suite/accounting/lists/FilterClauses.h"
#include "suite/utility/values/SearchPattern.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

namespace {

KSql searched(const QVariant &typed, int)
{
    const KSql condition = PersonSearch::condition(typed.toString());
    return condition.isEmpty() ? KSql() : " AND " + condition;
}

}

QStringList PersonSearch::columns()
{
    return {u"sName2"_s, u"iCode"_s, u"sNationalCode"_s,
            u"sMobile"_s, u"sTel"_s};
}

KSql PersonSearch::condition(const QString &typed)
{
    // The line break between the columns is no filler: a match never runs from one column into the next.
    QList<KSql> searched;
    for (const QString &column : columns())
        searched.append(KSql::name(column));
    const KSql all = KSql::formatted("CONCAT_WS(CHAR(10), %1)", KSql::joined(searched, ", "));
    QList<KSql> conditions;
    if (!SearchPattern::isStorable(typed))
        conditions.append("FALSE");
    for (const QString &word : ConvertToStandard(typed).split(u' ', Qt::SkipEmptyParts)) {
        if (const QString expression = SearchPattern::ofWord(word); !expression.isEmpty())
            conditions.append(KSql::formatted("%1 RLIKE %2", all, KSql::quoted(expression)));
    }
    return KSql::joined(conditions, " AND ");
}

QList<KListFilter> PersonSearch::filters()
{
    using F = KListFilter;
    return {
        {.key = u"inactive"_s, .label = u"نمايش غير فعال ها"_s, .kind = F::Kind::Flag, .place = {0, 2},
         .clause = FilterClauses::flag("", " AND iStatus=0"), .options = F::HiddenInSelect},
        {.key = u"search"_s, .label = u"جستجو :"_s, .kind = F::Kind::Text, .place = {0, 0}, .clause = searched, .maxLength = 100,
         .options = F::FindGoesHere},
    };
}
