// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/ContractFilter.h"

#include "auto/lists/ListClauses.h"
#include "auto/lists/WordChoices.h"
#include "suite/accounting/lists/FilterClauses.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int notArchivedState = 1;
constexpr int notReturnedState = 1;

}

QList<KListFilter> contractFilters()
{
    using namespace FilterClauses;
    using F = KListFilter;
    using K = KListFilter::Kind;
    const QString to = u"تا :"_s;
    return {
        // Only active contracts can be picked.
        {.key = u"inactive"_s, .label = u"نمايش غير فعال ها"_s, .kind = K::Flag, .place = {2, 4, 2},
         .clause = flag("", " AND iStatus = 0"), .initial = false, .options = F::KeptByReset | F::HiddenInSelect},
        {.key = u"seller"_s, .label = u"فروشنده :"_s, .kind = K::Person, .place = {0, 0}, .clause = number(" AND iPersonFirstID=")},
        {.key = u"returned"_s, .label = u"برگشتي :"_s, .kind = K::Choice, .place = {1, 2}, .clause = position(" AND bReturn="),
         .initial = notReturnedState, .choices = wordChoices(WordLists::returnStates()), .options = F::KeptByReset},
        {.key = u"archive"_s, .label = u"وضعيت بايگاني :"_s, .kind = K::Choice, .place = {0, 2},
         .clause = ListClauses::archive("iArchiveUserID", "iArchiveUserID"), .initial = notArchivedState,
         .choices = wordChoices(WordLists::archiveStates()), .options = F::KeptByReset},
        {.key = u"buyer"_s, .label = u"خريدار :"_s, .kind = K::Person, .place = {1, 0}, .clause = number(" AND iPersonSecondID=")},
        // Only filtered by, not shown: the list shows the type.
        {.key = u"type"_s, .label = u"نوع قرارداد :"_s, .kind = K::Choice, .clause = position(" AND iContractType = "),
         .choices = wordChoices(WordLists::contractTypesWithAll())},
        {.key = u"contractFrom"_s, .label = u"تاريخ عقد از :"_s, .kind = K::Date, .place = {0, 4}, .clause = from(" AND dateContract>=")},
        {.key = u"contractTo"_s, .label = to, .kind = K::Date, .place = {0, 6}, .clause = upTo(" AND dateContract<="),
         .accessibleName = u"تاريخ عقد تا :"_s},
        {.key = u"description"_s, .label = u"توضيحات :"_s, .kind = K::Text, .place = {2, 0}, .clause = part("sDesc"),
         .maxLength = 50, .options = F::FindGoesHere},
        {.key = u"explanation"_s, .label = u"شرح قرارداد :"_s, .kind = K::Text, .place = {2, 2}, .clause = part("sExplain"),
         .maxLength = 250},
        {.key = u"expirationFrom"_s, .label = u"تاريخ انقضاء از :"_s, .kind = K::Date, .place = {1, 4},
         .clause = from(" AND dateExpiration>=")},
        {.key = u"expirationTo"_s, .label = to, .kind = K::Date, .place = {1, 6}, .clause = upTo(" AND dateExpiration <= "),
         .accessibleName = u"تاريخ انقضاء تا :"_s},
    };
}
