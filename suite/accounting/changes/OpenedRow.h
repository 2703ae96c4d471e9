// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KMySQL.h"
#include "suite/db/records/RowMerge.h"
#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/changes/RowChanged.h"

#include <functional>

// What an editor read of a row, against which its save is held (RowMerge): what others changed meanwhile stays.
class TZACCOUNTINGDATA_EXPORT OpenedRow
{
public:
    OpenedRow() = default;
    // Of the record as it is loaded. Columns of one group count as one field. write sets the columns of the window as saving
    // does; it is run on the record here, right after the window was filled, and the record is put back.
    OpenedRow(KMySQL &record, QList<QStringList> groups, const std::function<void()> &write);

    // Nothing was read: a window for a new row.
    bool isEmpty() const { return m_values.isEmpty(); }
    KRowValues values() const { return m_values; }

    // What the user decided about the conflicts; until forgetAnswers() the next merges take that side, as long as the row stays
    // as it was shown.
    void answer(const QList<RowConflict> &conflicts, bool takeTheirs);
    void forgetAnswers() { m_answers.clear(); }

    // Values that belong to the row and stand elsewhere, such as those of custom fields, by names that none of its columns has.
    struct Further
    {
        KRowValues opened; // as the window read them
        KRowValues theirs; // as they are now
        KRowValues mine;   // what the user changed of them; the others are not merged

        // What the window holds.
        KRowValues all() const;
    };

    // Runs write on a record that is locked and open for editing, and sets the members to the merge of both sides. Throws
    // RowChanged with the conflicts, further ones among them, when it needs an answer; the record is then not to be written.
    // Returns the merge of the further values that the user changed.
    KRowValues mergeOnto(KMySQL &record, const std::function<void()> &write, const Further &further = {}) const;

private:
    KRowValues m_values;
    KRowValues m_untouched;
    QList<QStringList> m_groups;
    QHash<QString, RowAnswer> m_answers;
};
