// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QWidget>

// The first widget of that accessible name within another, shown or not; null where there is none.
template <class Widget>
Widget *named(const QWidget &within, const QString &name)
{
    for (Widget *widget : within.findChildren<Widget *>()) {
        if (widget->accessibleName() == name)
            return widget;
    }
    return nullptr;
}

// The first button that shows that caption; null where there is none.
template <class Button>
Button *captioned(const QWidget &within, const QString &caption)
{
    for (Button *button : within.findChildren<Button *>()) {
        if (button->text() == caption)
            return button;
    }
    return nullptr;
}
