// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/PlateEdit.h"

#include "suite/utility/values/CodeText.h"
#include "suite/utility/values/PlateText.h"

#include <QFocusEvent>

#include <optional>

using namespace Qt::StringLiterals;

PlateEdit::PlateEdit(QWidget *parent)
    : KEdit(Kind::Code, parent)
{
    connect(this, &QLineEdit::textEdited, this, &PlateEdit::goOn);
}

void PlateEdit::load(const QString &stored)
{
    setText(stored);
    setCursorPosition(0);
    m_loaded = plainText();
    m_length = m_loaded.size();
}

QString PlateEdit::storedText() const
{
    const QString text = plainText();
    return text == m_loaded ? text : PlateText::oneSpelling(text);
}

// A part is closed by the first digit of the next one. Only behind what was typed last, and never while something is taken away: whoever
// corrects a part moves by himself.
void PlateEdit::goOn()
{
    const QString code = plainText();
    const bool grew = code.size() > m_length;
    m_length = code.size();
    if (!grew || !code.back().isDigit() || !CodeText::plain(text().mid(cursorPosition())).isEmpty())
        return;
    std::optional<PlateText> plate = PlateText::begun(code);
    if (!plate)
        plate = PlateText::of(code);
    if (!plate || plate->typedText() == code)
        return;
    setText(plate->typedText());
    m_length = plainText().size();
}

void PlateEdit::takeSpelling()
{
    const QString spelled = storedText();
    if (spelled == plainText())
        return;
    setText(spelled);
    m_length = plainText().size();
}

void PlateEdit::focusInEvent(QFocusEvent *event)
{
    m_length = plainText().size();
    KEdit::focusInEvent(event);
}

void PlateEdit::focusOutEvent(QFocusEvent *event)
{
    if (!isReadOnly() && event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        takeSpelling();
    KEdit::focusOutEvent(event);
}
