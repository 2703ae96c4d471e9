// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/FilterClauses.h"

#include "suite/utility/values/SearchPattern.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace {

using Clause = KListFilter::Clause;

Clause dateClause(KSql start, int laterDays)
{
    return [start = std::move(start), laterDays](const QVariant &value, int) {
        const QDateTime date = value.toDateTime();
        return date.isValid() ? start + DateToSQL(date.addDays(laterDays)) : KSql();
    };
}

Clause textClause(KSql column, KSql (*condition)(const KSql &, const QString &))
{
    return [column = std::move(column), condition](const QVariant &value, int) {
        const QString text = value.toString();
        return text.isEmpty() ? KSql() : " AND " + condition(column, text);
    };
}

// The text as a pattern of LIKE, in which these characters stand for themselves.
QString withEscapes(const QString &text, QStringView special)
{
    QString pattern;
    for (const QChar c : text) {
        if (special.contains(c))
            pattern += u'\\';
        pattern += c;
    }
    return pattern;
}

KSql holds(const KSql &column, const QString &text, SearchPattern::Wildcards wildcards)
{
    if (!SearchPattern::isStorable(text))
        return "FALSE";
    if (SearchPattern::isWrittenOneWay(text)) {
        const QStringView special = wildcards == SearchPattern::Wildcards::Like ? u"\\" : u"\\%_";
        return column + " LIKE " + KSql::quoted(u'%' + withEscapes(text, special) + u'%');
    }
    // Blanks alone are in every text.
    const QString pattern = SearchPattern::ofText(text, wildcards);
    return pattern.isEmpty() ? KSql("TRUE") : column + " RLIKE " + KSql::quoted(pattern);
}

}

Clause FilterClauses::number(KSql start)
{
    return [start = std::move(start)](const QVariant &value, int) {
        const int number = value.toInt();
        return number == 0 ? KSql() : start + KSql::number(number);
    };
}

Clause FilterClauses::position(KSql start)
{
    return [start = std::move(start)](const QVariant &value, int) {
        const int position = value.toInt();
        return position > 0 ? start + KSql::number(position - 1) : KSql();
    };
}

Clause FilterClauses::amount(KSql start)
{
    return [start = std::move(start)](const QVariant &value, int) {
        const double amount = value.toDouble();
        return amount == 0 ? KSql() : start + KSql::amount(amount);
    };
}

Clause FilterClauses::from(KSql start)
{
    return dateClause(std::move(start), 0);
}

Clause FilterClauses::upTo(KSql start)
{
    return dateClause(std::move(start), 1);
}

Clause FilterClauses::part(KSql column)
{
    return textClause(std::move(column), contains);
}

Clause FilterClauses::pattern(KSql column)
{
    return textClause(std::move(column), matches);
}

Clause FilterClauses::flag(KSql set, KSql notSet)
{
    return [set = std::move(set), notSet = std::move(notSet)](const QVariant &value, int) { return value.toBool() ? set : notSet; };
}

Clause FilterClauses::always(KSql clause)
{
    return [clause = std::move(clause)](const QVariant &, int) { return clause; };
}

KSql FilterClauses::contains(const KSql &column, const QString &text)
{
    return holds(column, text, SearchPattern::Wildcards::None);
}

KSql FilterClauses::matches(const KSql &column, const QString &pattern)
{
    return holds(column, pattern, SearchPattern::Wildcards::Like);
}

KSql FilterClauses::isSame(const KSql &column, const QString &text)
{
    if (!SearchPattern::isStorable(text))
        return "FALSE";
    return column + " RLIKE " + KSql::quoted(u'^' + SearchPattern::ofText(text) + u'$');
}
