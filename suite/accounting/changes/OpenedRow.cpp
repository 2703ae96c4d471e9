// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/OpenedRow.h"

OpenedRow::OpenedRow(KMySQL &record, QList<QStringList> groups, const std::function<void()> &write)
    : m_values(record.rowValues())
    , m_groups(std::move(groups))
{
    write();
    m_untouched = record.rowValues();
    record.setRowValues(m_values);
}

void OpenedRow::answer(const QList<RowConflict> &conflicts, bool takeTheirs)
{
    for (const RowConflict &conflict : conflicts)
        m_answers.insert(conflict.column, {conflict.theirs, takeTheirs});
}

KRowValues OpenedRow::Further::all() const
{
    KRowValues values = opened;
    values.insert(mine);
    return values;
}

KRowValues OpenedRow::mergeOnto(KMySQL &record, const std::function<void()> &write, const Further &further) const
{
    const KRowValues theirs = record.rowValues();
    write();
    if (isEmpty())
        return further.mine;
    const RowMerge row = RowMerge::of({m_values, m_untouched, theirs, record.rowValues(), m_groups, m_answers});
    const RowMerge beside = RowMerge::of({further.opened, {}, further.theirs, further.mine, {}, m_answers});
    if (const QList<RowConflict> conflicts = row.conflicts + beside.conflicts; !conflicts.isEmpty())
        throw RowChanged(RowChanged::Kind::Conflict, record, conflicts);
    record.setRowValues(row.result);
    return beside.result;
}
