// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/today/TodayPlans.h"

#include "suite/db/records/CTblTemp.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QList<TodayPlan> &addedPlans()
{
    static QList<TodayPlan> plans;
    return plans;
}

TodayLine planLine(const QString &table, const CTblTemp &row, const QDate &today)
{
    const QDateTime when = row.GetDateFieldValue(2);
    const int days = static_cast<int>(today.daysTo(when.date()));
    // What is planned for the day as a whole has no hour.
    const bool hasHour = days == 0 && when.time() != QTime(0, 0);
    return {.table = table,
            .key = row.GetLongFieldValue(1),
            .name = row.GetTextFieldValue(3).simplified(),
            .line = row.GetTextFieldValue(4),
            .chip = hasHour ? when.time().toString(u"HH:mm"_s) : TodayCards::dayText(days),
            .tone = days == 0 ? TodayTone::Info : TodayTone::Overdue};
}

QList<TodayContent> readPlans(const QList<TodayPlan> &plans, const TodayFrame &frame)
{
    QList<TodayContent> contents(plans.size());
    QList<KSql> parts;
    for (qsizetype place = 0; place < plans.size(); ++place) {
        const TodayPlan &plan = plans.at(place);
        parts.append(KSql::formatted("SELECT %1,p.* FROM (%2) p", int(place), plan.select(frame)));
        if (!plan.request)
            continue;
        contents[place].listTable = plan.table;
        contents[place].request = plan.request(frame);
    }
    CTblTemp query(frame.database);
    for (query.ExecuteQuery(KSql::joined(parts, " UNION ALL ") + " ORDER BY 1,3,2"); query.HasResultRow(); query.MoveNextResult()) {
        const qsizetype place = query.GetLongFieldValue(0);
        contents[place].count = query.GetLongFieldValue(5);
        contents[place].tone = TodayTone::Info;
        contents[place].lines.append(planLine(plans.at(place).table, query, frame.today));
    }
    return contents;
}

}

void TodayPlans::add(const TodayPlan &plan)
{
    QList<TodayPlan> &plans = addedPlans();
    const auto same = std::find_if(plans.begin(), plans.end(), [&](const TodayPlan &other) { return other.card.id == plan.card.id; });
    if (same == plans.end())
        plans.append(plan);
    else
        *same = plan;
    TodaySource source{.read = [plans](const TodayFrame &frame) { return readPlans(plans, frame); }};
    for (const TodayPlan &each : std::as_const(plans))
        source.cards.append(each.card);
    TodayCards::enter(source);
}
