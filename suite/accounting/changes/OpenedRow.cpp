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

void OpenedRow::mergeOnto(KMySQL &record, const std::function<void()> &write) const
{
    const KRowValues theirs = record.rowValues();
    write();
    if (isEmpty())
        return;
    const RowMerge merge = RowMerge::of({m_values, m_untouched, theirs, record.rowValues(), m_groups, m_answers});
    if (!merge.conflicts.isEmpty())
        throw RowChanged(RowChanged::Kind::Conflict, record, merge.conflicts);
    record.setRowValues(merge.result);
}
