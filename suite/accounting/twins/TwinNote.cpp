// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/twins/TwinNote.h"

#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/records/RecordWindows.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KEdit.h"

#include <QEvent>
#include <QKeySequence>
#include <QShortcut>

using namespace Qt::StringLiterals;

TwinNote::TwinNote(KEdit *edit, Find find, std::function<QString()> otherHint, Take take)
    : QObject(edit)
    , m_edit(edit)
    , m_find(std::move(find))
    , m_otherHint(std::move(otherHint))
    , m_take(std::move(take))
{
    connect(edit, &QLineEdit::editingFinished, this, &TwinNote::look);
    connect(edit, &QLineEdit::textChanged, this, [this] {
        m_twin.reset();
        tell();
    });
    auto *shortcut = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_T), edit, nullptr, nullptr, Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, this, &TwinNote::open);
    if (FieldNote *note = FieldNote::of(edit))
        note->installEventFilter(this);
}

void TwinNote::loaded()
{
    m_loadedText = m_edit->plainText();
    m_twin.reset();
    tell();
}

std::optional<Twin> TwinNote::found() const
{
    const QString text = m_edit->plainText();
    return m_edit->isReadOnly() || text.trimmed().isEmpty() || text == m_loadedText ? std::nullopt : m_find(text);
}

// An error of the lookup keeps nobody from going on.
void TwinNote::look()
{
    KErrorBoundary::guarded(m_edit->window(), [this] {
        m_twin = found();
        tell();
    });
}

void TwinNote::tell()
{
    FieldNote *note = FieldNote::of(m_edit);
    if (!note)
        return;
    const QString hint = m_twin ? u"تکراری (Ctrl+T): %1"_s.arg(m_twin->text) : m_otherHint ? m_otherHint()
                                                                                   : QString();
    note->showHint(hint);
    note->setCursor(m_twin ? Qt::PointingHandCursor : Qt::ArrowCursor);
    m_edit->setAccessibleDescription(hint);
}

void TwinNote::open()
{
    if (!m_twin)
        look();
    if (!m_twin)
        return;
    const Twin twin = *m_twin;
    if (m_take)
        KErrorBoundary::guarded(m_edit->window(), [&] { m_take(twin); });
    else
        RecordWindows::open(twin.table, twin.key, false, m_edit->window());
}

bool TwinNote::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonRelease && m_twin) {
        open();
        return true;
    }
    return QObject::eventFilter(watched, event);
}
