// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/changes/CDlgRowConflict.h"
#include "suite/accounting/changes/RowEdit.h"

class KForm;

// Saves what a window holds and asks the user where somebody else was first. Whatever is not saved stays in the window.
namespace RowQuestions {

enum class Outcome {
    Saved,
    Back, // the user goes on in the window; why it was not saved has been shown
    Gone  // the row is gone, and the user does not want it as a new one
};

// How the window names and shows what it edits.
struct Texts
{
    CDlgRowConflict::Caption caption = {};
    CDlgRowConflict::Format format = {};
    // Moves to the field of a column.
    std::function<void(const QString &column)> goTo = {};
    // False where a row that is gone cannot come back as a new one.
    bool offersNewRow = true;
};

// The labels, choices and controls of a form. The form outlives them.
TZACCOUNTING_EXPORT Texts textsOf(const KForm &form);

TZACCOUNTING_EXPORT Outcome save(QWidget *window, RowEdit &edit, const Texts &texts, const RowEdit::Write &write,
                                 const RowEdit::Settle &settle = {});

// The same where the unit of work is not that of a RowEdit: attempt saves, against what was opened. becomeNew makes it save a new
// row; none: a row that is gone cannot come back.
TZACCOUNTING_EXPORT Outcome save(QWidget *window, OpenedRow &opened, KMySQL &record, const Texts &texts,
                                 const std::function<void()> &attempt, const std::function<void()> &becomeNew);

}
