// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/timeline/Story.h"

#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/timeline/RecordChanges.h"
#include "suite/accounting/timeline/RelatedFiles.h"
#include "suite/accounting/timeline/StoryReading.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool mayRead(const QString &form)
{
    return form.isEmpty() || KSecurity::IsGranted(form, KSecurity::Read);
}

// Without the records that the user may not read. What has no right of its own (a file, a note) has that of the record on which it hangs.
StoryScope readableOf(const StoryScope &scope, const StorySubject &subject)
{
    StoryScope readable = scope;
    readable.records.removeIf([&](const auto &kind) {
        const StorySubject *other = StorySources::ofKind(kind.key());
        return kind.key() != subject.recordKind && (!other || !Story::isOffered(other->table));
    });
    return readable;
}

// Of a record that is older than the log of changes.
void addBeginning(Story &story, const StorySubject &subject, qint32 key)
{
    if (!story.head.entered.isValid())
        return;
    StoryEvent begin{.kind = StoryEvent::Kind::Record, .when = story.head.entered, .tone = StoryEvent::Tone::Good, .title = subject.entered, .line = {}, .user = story.head.enteredBy, .table = subject.table, .key = key};
    story.events.append(begin);
}

}

bool Story::isOffered(const QString &table)
{
    const RecordSubject *subject = RecordSubjects::of(table);
    return StorySources::of(table) && subject && mayRead(subject->form);
}

Story Story::read(const QString &table, qint32 key, int limit, int database)
{
    const StorySubject *subject = StorySources::of(table);
    if (!isOffered(table))
        throw KAccountingError(u"شما اجازه دیدن این رکورد را ندارید."_s);
    const std::optional<StoryHead> head = subject->head(key, database);
    if (!head)
        throw KAccountingError(u"%1 را کاربر دیگری حذف کرده است."_s.arg(RecordSubjects::nameOf(subject->table, key, database)));
    Story story;
    story.head = *head;
    StoryScope scope{table, key, {{subject->recordKind, {key}}}};
    if (subject->widen)
        subject->widen(scope, limit, database);
    for (const StorySource *source : StorySources::all()) {
        if (source->widen && mayRead(source->form))
            source->widen(scope, limit, database);
    }
    const RecordChanges::Told told = RecordChanges::read(*subject, key, limit, database);
    story.events = told.events;
    if (!told.hasBeginning && !told.isCut)
        addBeginning(story, *subject, key);
    QList<const StorySource *> sources;
    for (const StorySource &source : RelatedFiles::sources())
        sources.append(&source);
    for (const StorySource *source : StorySources::all()) {
        if (mayRead(source->form))
            sources.append(source);
    }
    const StoryReading::Told others = StoryReading::read(sources, scope, readableOf(scope, *subject), limit, database);
    story.events.append(others.events);
    StoryReading::nameUsers(story.events, database);
    story.hasMore = told.isCut || others.isCut;
    std::ranges::stable_sort(story.events, [](const StoryEvent &one, const StoryEvent &other) { return one.when > other.when; });
    story.hasMore = story.hasMore || story.events.size() > limit;
    story.events = story.events.first(std::min<qsizetype>(limit, story.events.size()));
    return story;
}

QList<StoryEvent> Story::only(const QList<StoryEvent> &events, const QList<StoryEvent::Kind> &kinds)
{
    QList<StoryEvent> left;
    std::ranges::copy_if(events, std::back_inserter(left), [&](const StoryEvent &event) { return kinds.contains(event.kind); });
    return left;
}
