// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/CarFilter.h"

#include "auto/cars/web/PublicCondition.h"
#include "auto/lists/ListClauses.h"
#include "auto/lists/WordChoices.h"
#include "suite/accounting/lists/FilterClauses.h"
#include "suite/accounting/search/SearchQuery.h"
#include "suite/accounting/search/SearchText.h"
#include "suite/utility/values/TextStandard.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr int notArchivedState = 1;
constexpr int carsOfTheSearch = 3; // as SearchKinds numbers them in the table
constexpr qsizetype digitsBehindTheLetter = 3;

const char plateColumn[] = "ai.sNumOfPlates";

// What was typed stands on the plate, whatever stands between. The three digits and those of the region may have been typed as one number.
KSql standsOnPlate(const QString &typed)
{
    static const QRegularExpression number(u"[0-9]+"_s);
    QList<KSql> parts;
    for (auto numbers = number.globalMatch(toAsciiDigits(typed)); numbers.hasNext();) {
        const QString digits = numbers.next().captured();
        const KSql whole = FilterClauses::contains(plateColumn, digits);
        parts.append(digits.size() <= digitsBehindTheLetter
                         ? whole
                         : KSql::formatted("(%1 OR (%2 AND %3))", whole, FilterClauses::contains(plateColumn, digits.left(digitsBehindTheLetter)), FilterClauses::contains(plateColumn, digits.mid(digitsBehindTheLetter))));
    }
    return parts.isEmpty() ? FilterClauses::contains(plateColumn, typed) : KSql::joined(parts, " AND ");
}

// Only the region, "ایران 67", which no key begins with.
bool isRegion(const QString &typed)
{
    static const QRegularExpression region(u"^ایران[0-9]{1,2}$"_s);
    return region.match(SearchText::folded(typed)).hasMatch();
}

// A plate in any spelling, or its beginning at any of its parts: by the keys of the search, which hold other numbers of the car too.
KSql plateClause(const QVariant &value, int)
{
    const QString typed = value.toString().trimmed();
    if (typed.isEmpty())
        return {};
    if (typed.contains(u'%') || typed.contains(u'_'))
        return " AND " + FilterClauses::matches(plateColumn, typed);
    SearchQuery::Starts starts = SearchQuery::of(typed).whole;
    starts.removeIf([](const QString &start) { return start.startsWith(SearchText::backwards) || start.startsWith(SearchText::explaining); });
    if (isRegion(typed) || starts.isEmpty())
        return " AND " + FilterClauses::contains(plateColumn, typed);
    return KSql::formatted(" AND ai.iID IN (SELECT k.iRecordID FROM SearchKeys k WHERE k.iKind=%1 AND %2) AND %3", carsOfTheSearch, SearchQuery::beginsWith("k.sKey", starts), standsOnPlate(typed));
}

}

QList<KListFilter> carFilters(const KListFilter::Choices &types, const KListFilter::Choices &colors)
{
    using namespace FilterClauses;
    using F = KListFilter;
    using K = KListFilter::Kind;
    const QString to = u"تا :"_s;
    return {
        {.key = u"inactive"_s, .label = u"نمايش غير فعال ها"_s, .kind = K::Flag, .place = {3, 2}, .clause = flag(" AND (ai.iStatus=1 OR ai.iStatus=0)", " AND ai.iStatus=0")},
        // "Not archived" has no alias: the column is the cars' alone.
        {.key = u"archive"_s, .label = u"وضعيت بايگاني :"_s, .kind = K::Choice, .place = {3, 0}, .clause = ListClauses::archive("iArchiveUserID", "ai.iArchiveUserID"), .initial = notArchivedState, .choices = wordChoices(WordLists::archiveStates())},
        {.key = u"type"_s, .label = u"نوع خودرو :"_s, .kind = K::Choice, .place = {0, 2}, .clause = number(" AND ai.iAutomobilType="), .choices = types, .options = F::NamesOfOffice | F::ReadByReset},
        {.key = u"color"_s, .label = u"رنگ :"_s, .kind = K::Choice, .place = {1, 2}, .clause = number(" AND ai.iColor="), .choices = colors, .options = F::NamesOfOffice},
        {.key = u"fuel"_s, .label = u"سوخت :"_s, .kind = K::Choice, .place = {2, 2}, .clause = number(" AND ai.iFuel="), .choices = wordChoices(WordLists::fuelTypes())},
        {.key = u"introductionFrom"_s, .label = u"تاريخ معرفي از :"_s, .kind = K::Date, .place = {2, 4}, .clause = from(" AND ai.dateIntroduction >= ")},
        {.key = u"introductionTo"_s, .label = to, .kind = K::Date, .place = {2, 6}, .clause = upTo(" AND ai.dateIntroduction <= "), .accessibleName = u"تاريخ معرفي تا :"_s},
        // These two and the usage are only searched by, not shown.
        {.key = u"documentsDeficit"_s, .label = u"کسري مدارک :"_s, .kind = K::Text, .clause = pattern("ai.sDocumentsDeficit")},
        {.key = u"partsDeficit"_s, .label = u"کسري لوازم :"_s, .kind = K::Text, .clause = pattern("ai.sFractionalParts")},
        {.key = u"usage"_s, .label = u"کاربري :"_s, .kind = K::Choice, .choices = wordChoices(WordLists::usageTypes())},
        {.key = u"amountFrom"_s, .label = u"مبلغ از :"_s, .kind = K::Amount, .place = {0, 4}, .clause = amount(" AND ai.dAmount >= ")},
        {.key = u"amountTo"_s, .label = to, .kind = K::Amount, .place = {0, 6}, .clause = amount(" AND ai.dAmount <= "), .accessibleName = u"مبلغ تا :"_s},
        {.key = u"yearFrom"_s, .label = u"سال توليد از :"_s, .kind = K::Number, .place = {1, 4}, .clause = number(" AND ai.iYear=")},
        {.key = u"yearTo"_s, .label = to, .kind = K::Number, .place = {1, 6}, .clause = number(" AND ai.iYear<="), .accessibleName = u"سال توليد تا :"_s},
        {.key = u"buyer"_s, .label = u"نام خريدار :"_s, .kind = K::Person, .place = {1, 0}, .clause = number(" AND ai.iPersonBuyerID=")},
        {.key = u"owner"_s, .label = u"نام مالک :"_s, .kind = K::Person, .place = {0, 0}, .clause = number(" AND ai.iPersonID=")},
        {.key = u"chassis"_s, .label = u"شماره شاسي :"_s, .kind = K::Text, .place = {2, 0}, .clause = pattern("ai.sChassisNum"), .maxLength = 50, .options = F::FindGoesHere},
        {.key = u"plate"_s, .label = u"پلاک :"_s, .kind = K::Text, .place = {3, 4}, .clause = &plateClause, .maxLength = 50},
        {.key = u"web"_s, .label = u"فقط نمایش در وب"_s, .kind = K::Flag, .place = {3, 3}, .clause = flag(" AND " + PublicCondition::ticked(), {})},
        {.key = u"grouping"_s, .clause = always(" GROUP BY ai.iID")},
    };
}
