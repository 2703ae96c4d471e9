// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/forms/LineControls.h"

#include "suite/utility/forms/KFormField.h"

#include <QCompleter>

LineControl::LineControl(KEdit::Kind kind, QWidget *page)
    : m_edit(new KEdit(kind, page))
{
}

TextControl::TextControl(const KFormField &field, KMySQL &record, QWidget *page)
    : LineControl(field.leftToRight ? KEdit::Kind::Code : KEdit::Kind::Text, page)
{
    const int limit = textLimit(field, record);
    if (field.leftToRight)
        m_edit->setCodeLength(limit);
    else if (limit > 0)
        m_edit->setMaxLength(limit);
}

// Of a text that is longer than its line the beginning is in sight.
void TextControl::load(const QVariant &value)
{
    m_edit->setText(value.toString());
    m_edit->setCursorPosition(0);
}

void TextControl::setCompletions(const QStringList &texts)
{
    auto *completer = new QCompleter(texts, m_edit);
    completer->setFilterMode(Qt::MatchContains);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    m_edit->setCompleter(completer);
}

NumberControl::NumberControl(KEdit::Kind kind, const KFormField &field, QWidget *page)
    : LineControl(kind, page)
{
    if (field.minimum != 0 || field.maximum != 0)
        m_edit->setRange(field.minimum, field.maximum);
}
