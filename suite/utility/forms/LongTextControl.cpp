// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/forms/LongTextControl.h"

#include "suite/utility/forms/KFormField.h"

// No more lines than the page has room for: a text of several lines is read by scrolling.
LongTextControl::LongTextControl(const KFormField &field, KMySQL &record, QWidget *page)
    : m_area(new KTextArea(page))
{
    m_area->setMaxLength(textLimit(field, record));
    m_area->setFixedHeight(m_area->sizeHint().height());
}
