// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/KTimeEdit.h"

#include <QKeyEvent>
#include <QLocale>

using namespace Qt::StringLiterals;

KTimeEdit::KTimeEdit(QWidget *parent)
    : QTimeEdit(parent)
{
    // Right to left the base class would put the minutes in front of the hours.
    setLayoutDirection(Qt::LeftToRight);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    // Digits are ASCII in memory; the font draws them.
    setLocale(QLocale::c());
    setDisplayFormat(u"HH:mm"_s);
    setFocusPolicy(Qt::StrongFocus);
}

// The base class reads the digits of one language only, and a keyboard may be set to another one.
void KTimeEdit::keyPressEvent(QKeyEvent *event)
{
    const QString text = event->text();
    if (text.size() != 1 || text.front().digitValue() < 0 || text.front().unicode() < 0x80) {
        QTimeEdit::keyPressEvent(event);
        return;
    }
    const QChar digit(u'0' + text.front().digitValue());
    QKeyEvent typed(event->type(), digit.unicode(), event->modifiers(), QString(digit));
    QTimeEdit::keyPressEvent(&typed);
    event->setAccepted(typed.isAccepted());
}

// Scrolling the page past the field is no entry.
void KTimeEdit::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QTimeEdit::wheelEvent(event);
    else
        event->ignore();
}
