// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/timeline/StorySources.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace {

std::vector<std::unique_ptr<StorySubject>> &enteredSubjects()
{
    static std::vector<std::unique_ptr<StorySubject>> list;
    return list;
}

std::vector<std::unique_ptr<StorySource>> &enteredSources()
{
    static std::vector<std::unique_ptr<StorySource>> list;
    return list;
}

}

KSql StoryScope::named(const KSql &prefix) const
{
    QList<KSql> parts;
    for (auto kind = records.cbegin(); kind != records.cend(); ++kind) {
        if (!kind->isEmpty())
            parts.append(KSql::formatted("(%1iTable=%2 AND %1iRecordID IN (%3))", prefix, kind.key(), KSql::list(*kind)));
    }
    return parts.isEmpty() ? KSql("FALSE") : "(" + KSql::joined(parts, " OR ") + ")";
}

void StorySources::enter(StorySubject subject)
{
    removeSubject(subject.table);
    enteredSubjects().push_back(std::make_unique<StorySubject>(std::move(subject)));
}

void StorySources::enter(StorySource source)
{
    removeSource(source.id);
    enteredSources().push_back(std::make_unique<StorySource>(std::move(source)));
}

void StorySources::removeSubject(const QString &table)
{
    std::erase_if(enteredSubjects(), [&](const auto &subject) { return subject->table == table; });
}

void StorySources::removeSource(const QString &id)
{
    std::erase_if(enteredSources(), [&](const auto &source) { return source->id == id; });
}

const StorySubject *StorySources::of(const QString &table)
{
    const auto found = std::ranges::find_if(enteredSubjects(), [&](const auto &subject) { return subject->table == table; });
    return found == enteredSubjects().end() ? nullptr : found->get();
}

const StorySubject *StorySources::ofKind(int recordKind)
{
    const auto found = std::ranges::find_if(enteredSubjects(), [&](const auto &subject) { return subject->recordKind == recordKind; });
    return found == enteredSubjects().end() ? nullptr : found->get();
}

QList<const StorySource *> StorySources::all()
{
    QList<const StorySource *> sources;
    for (const auto &source : enteredSources())
        sources.append(source.get());
    return sources;
}
