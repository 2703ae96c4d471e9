// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/today/FirstStepList.h"

#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/records/CTblTemp.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QList<FirstStep> &enteredSteps()
{
    static QList<FirstStep> steps;
    return steps;
}

bool mayTake(const FirstStep &step)
{
    return step.form.isEmpty() || KSecurity::IsGranted(step.form, step.right);
}

// Whether each condition holds; true without one.
QList<bool> conditionsHold(const QList<FirstStep> &steps, int database)
{
    QList<KSql> conditions;
    for (const FirstStep &step : steps)
        conditions.append(step.rows.isEmpty() ? KSql("1") : "(" + step.rows + ")");
    CTblTemp statement(database);
    statement.ExecuteQuery("SELECT " + KSql::joined(conditions, ","));
    QList<bool> holds;
    for (qsizetype column = 0; column < steps.size(); ++column)
        holds.append(statement.GetTextFieldValue(int(column)).toInt() != 0);
    return holds;
}

}

int FirstStepState::doneCount() const
{
    return int(std::count_if(steps.cbegin(), steps.cend(), [](const Step &step) { return step.isDone; }));
}

qsizetype FirstStepState::next() const
{
    const auto open = std::find_if(steps.cbegin(), steps.cend(), [](const Step &step) { return !step.isDone; });
    return open == steps.cend() ? -1 : open - steps.cbegin();
}

void FirstStepList::enter(FirstStep step)
{
    remove(step.id);
    QList<FirstStep> &steps = enteredSteps();
    const auto behind = std::upper_bound(steps.begin(), steps.end(), step, [](const FirstStep &one, const FirstStep &other) { return one.place < other.place; });
    steps.insert(behind, std::move(step));
}

void FirstStepList::remove(const QString &id)
{
    enteredSteps().removeIf([&id](const FirstStep &step) { return step.id == id; });
}

// What begins the work counts for everybody, also for who may not do it.
FirstStepState FirstStepList::read(int database)
{
    QList<FirstStep> asked;
    QStringList sections;
    for (const FirstStep &step : std::as_const(enteredSteps())) {
        if (!mayTake(step) && !step.begins)
            continue;
        asked.append(step);
        if (!step.section.isEmpty())
            sections.append(step.section);
    }
    FirstStepState state;
    if (asked.isEmpty())
        return state;
    const OfficeSettings settings = OfficeSettings::read(sections, database);
    const QList<bool> holds = conditionsHold(asked, database);
    for (qsizetype place = 0; place < asked.size(); ++place) {
        const FirstStep &step = asked.at(place);
        const bool isDone = holds.at(place) && (!step.isSet || step.isSet(settings));
        state.hasBegun = state.hasBegun || (step.begins && isDone);
        if (mayTake(step))
            state.steps.append({step, isDone});
    }
    return state;
}
