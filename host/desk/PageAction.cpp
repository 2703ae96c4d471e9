// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/PageAction.h"

#include <QGuiApplication>
#include <QScopedValueRollback>
#include <QShortcutEvent>

using namespace Qt::StringLiterals;

PageAction::PageAction(const QIcon &icon, const QString &text, QObject *parent)
    : QAction(icon, text, parent)
{
    connect(this, &QAction::triggered, this, [this] {
        const bool controlHeld = QGuiApplication::keyboardModifiers().testFlag(Qt::ControlModifier);
        Q_EMIT chosen(m_byShortcut ? m_shortcutAsksForAnother : controlHeld);
    });
    setToolTip(u"با نگه داشتن Ctrl صفحه دیگری باز می‌شود."_s);
}

void PageAction::setKey(const QKeySequence &key)
{
    if (key.isEmpty())
        return;
    const QKeyCombination pressed = key[0];
    m_anotherKey = QKeySequence(QKeyCombination(pressed.keyboardModifiers() | Qt::ShiftModifier, pressed.key()));
    setShortcuts({key, m_anotherKey});
}

bool PageAction::event(QEvent *event)
{
    if (event->type() != QEvent::Shortcut)
        return QAction::event(event);
    const QScopedValueRollback byShortcut(m_byShortcut, true);
    m_shortcutAsksForAnother = static_cast<const QShortcutEvent *>(event)->key() == m_anotherKey;
    return QAction::event(event);
}
