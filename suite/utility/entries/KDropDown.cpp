// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/KDropDown.h"

#include <QApplication>
#include <QEvent>
#include <QPalette>

KDropDown::KDropDown(QWidget *parent)
    : QComboBox(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    keepTextReadable();
}

bool KDropDown::event(QEvent *event)
{
    if (event->type() == QEvent::ApplicationPaletteChange)
        keepTextReadable();
    if (event->type() != QEvent::Wheel || hasFocus())
        return QComboBox::event(event);
    event->ignore();
    return true;
}

void KDropDown::keepTextReadable()
{
    QPalette palette = QApplication::palette(this);
    for (const QPalette::ColorRole role : {QPalette::ButtonText, QPalette::Text})
        palette.setColor(QPalette::Disabled, role, palette.color(QPalette::Active, role));
    setPalette(palette);
}
