// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/cheques/ChequeFilter.h"

#include "suite/accounting/lists/FilterClauses.h"
#include "suite/treasury/records/ChequeStates.h"
#include "suite/treasury/cheques/ChequesDue.h"

using namespace Qt::StringLiterals;

namespace {

QList<KListFilter::Choice> chequeKinds()
{
    return {{u"همه"_s, 0}, {u"دریافتی"_s, 1}, {u"پرداختی"_s, 2}};
}

// A state under both of its names, where received and given cheques have one each.
QList<KListFilter::Choice> chequeStates()
{
    QList<KListFilter::Choice> choices = {{u"همه"_s, 0}};
    for (int state = 0; state < static_cast<int>(ChequeState::Void); ++state) {
        const QString received = ChequeStates::name(static_cast<ChequeState>(state));
        const QString given = ChequeStates::name(static_cast<ChequeState>(state), true);
        choices.append({received == given ? received : received + u" / "_s + given, state + 1});
    }
    return choices;
}

}

QList<KListFilter> chequeFilters()
{
    using namespace FilterClauses;
    using K = KListFilter::Kind;
    return {
        {.key = u"voided"_s, .label = u"نمایش باطل شده‌ها"_s, .kind = K::Flag, .place = {1, 2, 2}, .clause = flag("", KSql::formatted(" AND iState<>%1", int(ChequeState::Void)))},
        {.key = u"person"_s, .label = u"شخص :"_s, .kind = K::Person, .place = {0, 0}, .clause = number(" AND iPersonID="), .options = KListFilter::FindGoesHere},
        {.key = u"kind"_s, .label = u"نوع :"_s, .kind = K::Choice, .place = {0, 2}, .clause = position(" AND iKind="), .choices = chequeKinds},
        {.key = u"state"_s, .label = u"وضعیت :"_s, .kind = K::Choice, .place = {0, 4}, .clause = position(" AND iState="), .choices = chequeStates},
        {.key = u"sayad"_s, .label = u"شناسه صیادی :"_s, .kind = K::Text, .place = {0, 6}, .clause = part("sSayad"), .maxLength = 16},
        {.key = u"dueFrom"_s, .label = u"سررسید از :"_s, .kind = K::PlainDate, .place = {1, 4}, .clause = from(" AND dateDue>=")},
        {.key = u"dueTo"_s, .label = u"سررسید تا :"_s, .kind = K::PlainDate, .place = {1, 6}, .clause = upTo(" AND dateDue<")},
        {.key = u"open"_s, .label = u"فقط سررسیدشده و وصول‌نشده"_s, .kind = K::Flag, .place = {1, 0, 2}, .clause = flag(" AND dateDue<CURDATE()+INTERVAL 1 DAY AND " + ChequesDue::openCondition(), "")},
    };
}
