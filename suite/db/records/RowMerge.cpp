// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/records/RowMerge.h"

#include <QSet>

#include <algorithm>

namespace {

// The columns of mine as fields: the groups, cut to what there is, and each other column by itself.
QList<QStringList> fieldsOf(const RowMerge::Sides &sides)
{
    QList<QStringList> fields;
    QSet<QString> grouped;
    for (const QStringList &group : sides.groups) {
        QStringList present;
        for (const QString &column : group) {
            if (sides.mine.contains(column) && !grouped.contains(column)) {
                present.append(column);
                grouped.insert(column);
            }
        }
        present.sort();
        if (!present.isEmpty())
            fields.append(present);
    }
    QStringList others = sides.mine.keys();
    others.sort();
    for (const QString &column : others) {
        if (!grouped.contains(column))
            fields.append(QStringList{column});
    }
    return fields;
}

class Field
{
public:
    Field(const QStringList &columns, const RowMerge::Sides &sides)
        : m_columns(columns)
        , m_sides(sides)
    {
    }

    bool theyChanged() const
    {
        return std::ranges::any_of(m_columns, [this](const QString &column) { return theyChanged(column); });
    }
    bool iChanged() const
    {
        return std::ranges::any_of(m_columns, [this](const QString &column) { return iChanged(column); });
    }
    bool isSame() const
    {
        return std::ranges::all_of(m_columns, [this](const QString &column) {
            return isSameValue(m_sides.mine.value(column), m_sides.theirs.value(column));
        });
    }
    // What the user decided, as long as it was about the row as it is now.
    const RowAnswer *answer() const
    {
        const RowAnswer *found = nullptr;
        for (const RowConflict &conflict : conflicts()) {
            const auto answer = m_sides.answers.constFind(conflict.column);
            if (answer == m_sides.answers.cend() || !isSameValue(answer->theirs, conflict.theirs))
                return nullptr;
            found = &*answer;
        }
        return found;
    }
    QList<RowConflict> conflicts() const
    {
        QList<RowConflict> conflicts;
        for (const QString &column : m_columns) {
            if (theyChanged(column) || iChanged(column))
                conflicts.append({column, m_sides.opened.value(column), m_sides.theirs.value(column), m_sides.mine.value(column)});
        }
        return conflicts;
    }
    void take(const KRowValues &side, KRowValues &result) const
    {
        for (const QString &column : m_columns)
            result.insert(column, side.value(column));
    }

private:
    bool theyChanged(const QString &column) const
    {
        return !isSameValue(m_sides.theirs.value(column), m_sides.opened.value(column));
    }
    bool iChanged(const QString &column) const
    {
        const QVariant untouched = m_sides.untouched.value(column, m_sides.opened.value(column));
        return !isSameValue(m_sides.mine.value(column), untouched);
    }

    const QStringList &m_columns;
    const RowMerge::Sides &m_sides;
};

}

RowMerge RowMerge::of(const Sides &sides)
{
    RowMerge merge;
    for (const QStringList &columns : fieldsOf(sides)) {
        const Field field(columns, sides);
        if (!field.theyChanged()) {
            field.take(sides.mine, merge.result);
        } else if (!field.iChanged() || field.isSame()) {
            field.take(sides.theirs, merge.result);
        } else if (const RowAnswer *answer = field.answer()) {
            field.take(answer->takeTheirs ? sides.theirs : sides.mine, merge.result);
        } else {
            merge.conflicts += field.conflicts();
        }
    }
    return merge;
}
