// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/PersonSearch.h"

#include "suite/accounting/lists/FilterClauses.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

namespace {

// What may stand inside a name or number without being typed: blanks, marks, joiners, kashida, vowel signs, a lone hamza.
QString filler()
{
    return u"[ \u00A0[:punct:]\u200C\u0640\u064B-\u0655\u0670\u0621]*"_s;
}

// Every character that a folded character stands for, as the inside of a bracket.
QString waysOfWriting(QChar folded)
{
    const char16_t code = folded.unicode();
    if (code >= u'0' && code <= u'9')
        return QString(folded) + QChar(0x06F0 + (code - u'0')) + QChar(0x0660 + (code - u'0'));
    switch (code) {
    case 0x0627:
        return u"\u0627\u0622\u0623\u0625\u0671"_s;
    case 0x0648:
        return u"\u0648\u0624"_s;
    case 0x06CC:
        return u"\u06CC\u064A\u0649\u0626"_s;
    case 0x06A9:
        return u"\u06A9\u0643"_s;
    case 0x0647:
        return u"\u0647\u0629\u06C0\u06D5"_s;
    default:
        return folded;
    }
}

KSql searched(const QVariant &typed, int)
{
    const KSql condition = PersonSearch::condition(typed.toString());
    return condition.isEmpty() ? KSql() : " AND " + condition;
}

}

QString PersonSearch::pattern(const QString &word)
{
    QString result;
    for (const QChar c : searchKey(word)) {
        if (!c.isLetter() && !c.isDigit())
            continue;
        if (!result.isEmpty())
            result += filler();
        result += u'[' + waysOfWriting(c) + u']';
    }
    return result;
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
    for (const QString &word : ConvertToStandard(typed).split(u' ', Qt::SkipEmptyParts)) {
        if (const QString expression = pattern(word); !expression.isEmpty())
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
