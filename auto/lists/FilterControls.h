// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/words/WordLists.h"
#include "suite/utility/entries/KEdit.h"

class KDateEdit;
class QComboBox;

// The controls that the lists search by. A name is the accessible one, for a control whose label alone ("تا :") does not tell
// it from another.
namespace FilterControls {

QComboBox *words(WordLists::List list, int position, QWidget *box);
KEdit *number(KEdit::Kind kind, const QString &name, QWidget *box);
// With a check box: it asks nothing until that is ticked.
KDateEdit *date(const QString &name, QWidget *box);

}
