// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/KWaitCursor.h"

#include <QCursor>
#include <QGuiApplication>

KWaitCursor::KWaitCursor()
{
    QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
}

KWaitCursor::~KWaitCursor()
{
    QGuiApplication::restoreOverrideCursor();
}
