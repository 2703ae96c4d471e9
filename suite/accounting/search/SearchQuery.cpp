// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/search/SearchQuery.h"

#include "suite/accounting/search/SearchText.h"
#include "suite/utility/values/TextStandard.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype permutedWords = 3;
constexpr qsizetype mostWords = 6;
constexpr qsizetype fewestLastDigits = 3;
constexpr qsizetype fewestOfOneNumber = 8; // groups of digits that make so many are one number

bool isDigits(const QString &text)
{
    return !text.isEmpty() && std::ranges::all_of(text, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

void append(QStringList &starts, const QString &start)
{
    if (!start.isEmpty() && !starts.contains(start))
        starts.append(start);
}

// One word, or what stands for one.
QStringList startsOf(const QString &word)
{
    QStringList starts{word};
    if (isDigits(word))
        append(starts, SearchText::wholeTelephone(word));
    const bool hasDigit = std::ranges::any_of(word, [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (hasDigit && word.size() >= fewestLastDigits) {
        QString reversed = starts.constLast();
        std::ranges::reverse(reversed);
        append(starts, QString(SearchText::backwards + reversed).left(SearchText::longestKey));
    }
    if (word.size() >= 2)
        append(starts, QString(SearchText::explaining + word).left(SearchText::longestKey));
    return starts;
}

// What stands on a plate and says nothing of it.
bool isOfPlates(const QString &word)
{
    return word == u"ایران" || word == u"پلاک";
}

}

SearchQuery SearchQuery::of(const QString &typed)
{
    SearchQuery query;
    QStringList words = SearchText::words(typed).mid(0, mostWords);
    if (words.isEmpty())
        return query;
    if (words.size() == 1) {
        query.whole = startsOf(words.constFirst());
        if (isDigits(words.constFirst()))
            append(query.whole, SearchText::wholeTelephone(typed));
        append(query.whole, SearchText::wholePlate(typed));
        return query;
    }
    const QString joined = words.join(QString());
    const bool isOneNumber = isDigits(joined) && joined.size() >= fewestOfOneNumber;
    for (const QString &word : std::as_const(words)) {
        if (!isOneNumber)
            query.words.append(startsOf(word));
    }
    append(query.whole, SearchText::wholePlate(typed));
    QStringList ofPlate = words;
    ofPlate.removeIf(&isOfPlates);
    append(query.whole, ofPlate.join(QString()).left(SearchText::longestKey));
    if (isDigits(joined)) {
        append(query.whole, SearchText::wholeTelephone(typed));
        return query;
    }
    if (words.size() <= permutedWords) {
        std::ranges::sort(words);
        do {
            append(query.whole, words.join(QString()).left(SearchText::longestKey));
        } while (std::ranges::next_permutation(words).found);
    }
    return query;
}

KSql SearchQuery::beginsWith(const KSql &column, const Starts &starts)
{
    constexpr QChar behindAll(0xFFFD);
    QList<KSql> ranges;
    for (const QString &start : starts)
        ranges.append(KSql::formatted("(%1>=%2 AND %1<%3)", column, KSql::quoted(start), KSql::quoted(start + behindAll)));
    return ranges.isEmpty() ? KSql("FALSE") : "(" + KSql::joined(ranges, " OR ") + ")";
}
