// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/FocusKeeper.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>

namespace {

// Longer than a window manager takes, shorter than the next key of a quick hand is missed for.
constexpr int patienceMilliseconds = 300;

}

FocusKeeper::FocusKeeper(QObject *application)
    : QObject(application)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patienceMilliseconds);
    connect(&m_patience, &QTimer::timeout, this, &FocusKeeper::giveBack);
    application->installEventFilter(this);
}

// A dialog that closes while it has the keys; who closes another one has gone on working elsewhere.
bool FocusKeeper::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Hide || event->spontaneous())
        return false;
    const auto *dialog = qobject_cast<QDialog *>(watched);
    if (dialog && dialog->parentWidget() && (dialog->isActiveWindow() || !QApplication::activeWindow())) {
        m_behind = dialog->parentWidget()->window();
        m_patience.start();
    }
    return false;
}

void FocusKeeper::giveBack()
{
    if (QGuiApplication::focusWindow())
        return;
    QWidget *next = QApplication::activeModalWidget();
    if (!next)
        next = m_behind;
    if (next && next->isVisible())
        next->activateWindow();
}
