// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/CarFilter.h"

#include "auto/lists/ListClauses.h"
#include "auto/lists/WordChoices.h"
#include "suite/accounting/lists/FilterClauses.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int notArchivedState = 1;

}

QList<KListFilter> carFilters(const KListFilter::Choices &types, const KListFilter::Choices &colors)
{
    using namespace FilterClauses;
    using F = KListFilter;
    using K = KListFilter::Kind;
    const QString to = u"تا :"_s;
    return {
        {.key = u"inactive"_s, .label = u"نمايش غير فعال ها"_s, .kind = K::Flag, .place = {3, 2, 2},
         .clause = flag(" AND (ai.iStatus=1 OR ai.iStatus=0)", " AND ai.iStatus=0")},
        // "Not archived" has no alias: the column is the cars' alone.
        {.key = u"archive"_s, .label = u"وضعيت بايگاني :"_s, .kind = K::Choice, .place = {3, 0},
         .clause = ListClauses::archive("iArchiveUserID", "ai.iArchiveUserID"), .initial = notArchivedState,
         .choices = wordChoices(WordLists::archiveStates())},
        {.key = u"type"_s, .label = u"نوع خودرو :"_s, .kind = K::Choice, .place = {0, 2}, .clause = number(" AND ai.iAutomobilType="),
         .choices = types, .options = F::NamesOfOffice | F::ReadByReset},
        {.key = u"color"_s, .label = u"رنگ :"_s, .kind = K::Choice, .place = {1, 2}, .clause = number(" AND ai.iColor="),
         .choices = colors, .options = F::NamesOfOffice},
        {.key = u"fuel"_s, .label = u"سوخت :"_s, .kind = K::Choice, .place = {2, 2}, .clause = number(" AND ai.iFuel="),
         .choices = wordChoices(WordLists::fuelTypes())},
        {.key = u"introductionFrom"_s, .label = u"تاريخ معرفي از :"_s, .kind = K::Date, .place = {2, 4},
         .clause = from(" AND ai.dateIntroduction >= ")},
        {.key = u"introductionTo"_s, .label = to, .kind = K::Date, .place = {2, 6}, .clause = upTo(" AND ai.dateIntroduction <= "),
         .accessibleName = u"تاريخ معرفي تا :"_s},
        // These two and the usage are only searched by, not shown.
        {.key = u"documentsDeficit"_s, .label = u"کسري مدارک :"_s, .kind = K::Text, .clause = pattern("ai.sDocumentsDeficit")},
        {.key = u"partsDeficit"_s, .label = u"کسري لوازم :"_s, .kind = K::Text, .clause = pattern("ai.sFractionalParts")},
        {.key = u"usage"_s, .label = u"کاربري :"_s, .kind = K::Choice, .choices = wordChoices(WordLists::usageTypes())},
        {.key = u"amountFrom"_s, .label = u"مبلغ از :"_s, .kind = K::Amount, .place = {0, 4}, .clause = amount(" AND ai.dAmount >= ")},
        {.key = u"amountTo"_s, .label = to, .kind = K::Amount, .place = {0, 6}, .clause = amount(" AND ai.dAmount <= "),
         .accessibleName = u"مبلغ تا :"_s},
        {.key = u"yearFrom"_s, .label = u"سال توليد از :"_s, .kind = K::Number, .place = {1, 4}, .clause = number(" AND ai.iYear=")},
        {.key = u"yearTo"_s, .label = to, .kind = K::Number, .place = {1, 6}, .clause = number(" AND ai.iYear<="),
         .accessibleName = u"سال توليد تا :"_s},
        {.key = u"buyer"_s, .label = u"نام خريدار :"_s, .kind = K::Person, .place = {1, 0}, .clause = number(" AND ai.iPersonBuyerID=")},
        {.key = u"owner"_s, .label = u"نام مالک :"_s, .kind = K::Person, .place = {0, 0}, .clause = number(" AND ai.iPersonID=")},
        {.key = u"chassis"_s, .label = u"شماره شاسي :"_s, .kind = K::Text, .place = {2, 0}, .clause = pattern("ai.sChassisNum"),
         .maxLength = 50, .options = F::FindGoesHere},
        {.key = u"grouping"_s, .clause = always(" GROUP BY ai.iID")},
    };
}
