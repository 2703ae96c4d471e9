// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/FieldNote.h"

#include "suite/utility/look/LookFonts.h"

#include <QPointer>
#include <QVariant>

namespace {

constexpr char noteOfControl[] = "tzFieldNote";

}

FieldNote::FieldNote(QWidget *control, QWidget *parent)
    : ElidedLabel(parent)
{
    LookFonts::applyHint(this);
    control->setProperty(noteOfControl, QVariant::fromValue(QPointer<QObject>(this)));
}

FieldNote *FieldNote::of(const QWidget *control)
{
    return qobject_cast<FieldNote *>(control->property(noteOfControl).value<QPointer<QObject>>().data());
}

void FieldNote::setOwnText(const QString &text)
{
    m_own = text;
    tell();
}

void FieldNote::showHint(const QString &hint)
{
    m_hint = hint;
    tell();
}

void FieldNote::showError(const QString &error)
{
    m_error = error;
    tell();
}

void FieldNote::tell()
{
    if (m_error.isEmpty())
        LookFonts::applyHint(this);
    else
        LookFonts::applyError(this);
    setText(!m_error.isEmpty() ? m_error : !m_hint.isEmpty() ? m_hint
                                                             : m_own);
}
