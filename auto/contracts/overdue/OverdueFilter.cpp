// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/overdue/OverdueFilter.h"

#include "auto/contracts/overdue/DueDays.h"
#include "suite/accounting/lists/FilterClauses.h"

using namespace Qt::StringLiterals;

namespace {

using Days = std::function<QDate()>;

// What was promised, by the day of the last call that brought a promise.
enum Promise : int {
    AnyPromise = 0,
    PromiseDue = 1,
    PromiseAhead = 2,
    NoPromise = 3
};

KSql dayLiteral(const QDate &day)
{
    return DateToSQL(QDateTime(day, QTime(0, 0), Qt::UTC));
}

KListFilter::Clause spanClause(const Days &today)
{
    return [today](const QVariant &value, int) {
        const DueDays::Range range = DueDays::range(value.toInt(), today());
        KSql clause;
        if (range.from.isValid())
            clause += " AND ap.date>=" + dayLiteral(range.from);
        if (range.to.isValid())
            clause += " AND ap.date<" + dayLiteral(range.to.addDays(1));
        return clause;
    };
}

KListFilter::Clause daysClause(const Days &today)
{
    return [today](const QVariant &value, int) {
        const int days = value.toInt();
        return days > 0 ? " AND ap.date<" + dayLiteral(today().addDays(1 - days)) : KSql();
    };
}

KListFilter::Clause promiseClause(const Days &today)
{
    return [today](const QVariant &value, int) -> KSql {
        switch (value.toInt()) {
        case PromiseDue: return " AND fu.datePromised<" + dayLiteral(today().addDays(1));
        case PromiseAhead: return " AND fu.datePromised>=" + dayLiteral(today().addDays(1));
        case NoPromise: return " AND fu.datePromised IS NULL";
        default: return {};
        }
    };
}

// By the number that the contract is called by: its own, else its code. Each is found by a key.
KSql contractClause(const QVariant &value, int)
{
    const int number = value.toInt();
    return number > 0 ? KSql::formatted(" AND (ac.iNum=%1 OR ac.iCode=%1 AND COALESCE(ac.iNum,0)=0)", number) : KSql();
}

// A buyer that was typed by hand has name and number in the contract only.
KSql wordsClause(const QVariant &value, int)
{
    const QString text = value.toString();
    if (text.isEmpty())
        return {};
    QList<KSql> anywhere;
    for (const KSql &column : {KSql("COALESCE(p.sName2,ac.sName2)"), KSql("COALESCE(p.sMobile,ac.sMobile2)"), KSql("ac.sAutomobilName")})
        anywhere.append(FilterClauses::contains(column, text));
    return " AND (" + KSql::joined(anywhere, " OR ") + ")";
}

QList<KListFilter::Choice> spanChoices()
{
    QList<KListFilter::Choice> choices;
    for (const int span : DueDays::spans)
        choices.append({DueDays::name(span), span});
    return choices;
}

QList<KListFilter::Choice> promiseChoices()
{
    return {{u"همه"_s, AnyPromise}, {u"وعده رسیده"_s, PromiseDue}, {u"وعده در پیش"_s, PromiseAhead}, {u"بدون وعده"_s, NoPromise}};
}

}

QList<KListFilter> overdueFilters(const std::function<QDate()> &today)
{
    using K = KListFilter::Kind;
    return {
        {.key = u"span"_s, .label = u"سررسید :"_s, .kind = K::Choice, .place = {0, 0}, .clause = spanClause(today), .initial = int(DueDays::UpToToday), .choices = spanChoices},
        {.key = u"days"_s, .label = u"تأخیر از (روز) :"_s, .kind = K::Number, .place = {0, 2}, .clause = daysClause(today)},
        {.key = u"promise"_s, .label = u"وعده پرداخت :"_s, .kind = K::Choice, .place = {0, 4}, .clause = promiseClause(today), .choices = promiseChoices},
        {.key = u"contract"_s, .label = u"شماره قرارداد :"_s, .kind = K::Number, .place = {0, 6}, .clause = contractClause},
        {.key = u"person"_s, .label = u"شخص :"_s, .kind = K::Person, .place = {1, 0}, .clause = FilterClauses::number(" AND ap.iPersonID=")},
        {.key = u"words"_s, .label = u"نام، موبایل یا خودرو :"_s, .kind = K::Text, .place = {1, 2}, .clause = wordsClause, .maxLength = 50, .options = KListFilter::FindGoesHere},
        {.key = u"archived"_s, .label = u"نمایش بایگانی شده‌ها"_s, .kind = K::Flag, .place = {1, 4, 2}, .clause = FilterClauses::flag("", " AND ac.iArchiveUserID=0"), .initial = false},
    };
}
