// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/demands/DemandFilter.h"

#include "auto/lists/ListClauses.h"
#include "auto/lists/WordChoices.h"
#include "suite/accounting/lists/FilterClauses.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int notArchivedState = 1;

}

QList<KListFilter> demandFilters(const KListFilter::Choices &types, const KListFilter::Choices &colors)
{
    using namespace FilterClauses;
    using F = KListFilter;
    using K = KListFilter::Kind;
    const QString to = u"تا :"_s;
    // Brands and colours may have been added since.
    constexpr int readNames = F::NamesOfOffice | F::ReadByReset;
    return {
        {.key = u"inactive"_s, .label = u"نمايش غير فعال ها"_s, .kind = K::Flag, .place = {2, 2, 2},
         .clause = flag(" AND (ad.iStatus=1 OR ad.iStatus=0)", " AND ad.iStatus=0")},
        {.key = u"archive"_s, .label = u"وضعيت بايگاني :"_s, .kind = K::Choice, .place = {2, 0},
         .clause = ListClauses::archive("ad.iArchiveUserID", "ad.iArchiveUserID"), .initial = notArchivedState,
         .choices = wordChoices(WordLists::archiveStates())},
        {.key = u"type"_s, .label = u"نوع خودرو :"_s, .kind = K::Choice, .place = {0, 2}, .clause = number(" AND ad.iAutomobilType="),
         .choices = types, .options = readNames},
        {.key = u"color"_s, .label = u"رنگ :"_s, .kind = K::Choice, .place = {1, 2}, .clause = number(" AND ad.iColor="),
         .choices = colors, .options = readNames},
        {.key = u"referenceFrom"_s, .label = u"تاريخ مراجعه از :"_s, .kind = K::Date, .place = {2, 4},
         .clause = from(" AND ad.dateReference >= ")},
        {.key = u"referenceTo"_s, .label = to, .kind = K::Date, .place = {2, 6}, .clause = upTo(" AND ad.dateReference <= "),
         .accessibleName = u"تاريخ مراجعه تا :"_s},
        {.key = u"specialDescription"_s, .label = u"توضيحات ويژه :"_s, .kind = K::Text, .place = {1, 0},
         .clause = part("ad.sDescSpecial"), .maxLength = 255, .options = F::FindGoesHere},
        {.key = u"person"_s, .label = u"متقاضي :"_s, .kind = K::Person, .place = {0, 0}, .clause = number(" AND ad.iPersonID=")},
        {.key = u"yearFrom"_s, .label = u"سال توليد از :"_s, .kind = K::Number, .place = {1, 4},
         .clause = number(" AND ad.iModelFrom >= ")},
        {.key = u"yearTo"_s, .label = to, .kind = K::Number, .place = {1, 6}, .clause = number(" AND ad.iModelUpTo <= "),
         .accessibleName = u"سال توليد تا :"_s},
        {.key = u"amountFrom"_s, .label = u"مبلغ از :"_s, .kind = K::Amount, .place = {0, 4},
         .clause = amount(" AND ad.dAmountFrom >= ")},
        {.key = u"amountTo"_s, .label = to, .kind = K::Amount, .place = {0, 6}, .clause = amount(" AND ad.dAmountUpTo <= "),
         .accessibleName = u"مبلغ تا :"_s},
        {.key = u"grouping"_s, .clause = always(" GROUP BY ad.iID")},
    };
}
