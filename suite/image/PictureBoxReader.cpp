// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/image/PictureBoxReader.h"

PictureBoxReader::PictureBoxReader(QWidget *box)
    : QAccessibleWidget(box, QAccessible::Graphic)
{
}

QStringList PictureBoxReader::actionNames() const
{
    QStringList names = QAccessibleWidget::actionNames();
    if (widget()->isEnabled())
        names.prepend(pressAction());
    return names;
}

void PictureBoxReader::doAction(const QString &name)
{
    if (name != pressAction())
        QAccessibleWidget::doAction(name);
    else if (widget()->isEnabled())
        // Queued, because the caller waits for this to return, and a window opens.
        QMetaObject::invokeMethod(widget(), "activate", Qt::QueuedConnection);
}
