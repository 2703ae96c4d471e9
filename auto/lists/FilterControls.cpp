// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/lists/FilterControls.h"

#include "suite/utility/entries/KDateEdit.h"

#include <QComboBox>

QComboBox *FilterControls::words(WordLists::List list, int position, QWidget *box)
{
    auto *combo = new QComboBox(box);
    combo->addItems(WordLists::texts(list));
    combo->setCurrentIndex(position);
    return combo;
}

KEdit *FilterControls::number(KEdit::Kind kind, const QString &name, QWidget *box)
{
    auto *edit = new KEdit(kind, box);
    edit->setAccessibleName(name);
    return edit;
}

KDateEdit *FilterControls::date(const QString &name, QWidget *box)
{
    auto *edit = new KDateEdit(box);
    edit->setCheckable(true);
    edit->setAccessibleName(name);
    return edit;
}
