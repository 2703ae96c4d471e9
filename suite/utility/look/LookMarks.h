// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

class QWidget;

// What a control is in its window, for the style that draws it. Without the program's style these change nothing.
namespace LookMarks {

enum class Button {
    Normal,
    Primary, // filled; one in a window
    Flat,    // no frame before the pointer is on it
    Small,   // beside a field: as high as that
    Danger   // deletes
};

TZUTILITY_EXPORT void setButton(QWidget *button, Button kind);
TZUTILITY_EXPORT Button button(const QWidget *widget);
// A control of a filter, a bar or a footer is higher than one of a form. Also all those inside the widget, now.
TZUTILITY_EXPORT void setTall(QWidget *widget);
TZUTILITY_EXPORT bool isTall(const QWidget *widget);
// A group box or frame is a card: surface, border, round corners. A group box without this is one too; this is for others.
TZUTILITY_EXPORT void setCard(QWidget *widget);
TZUTILITY_EXPORT bool isCard(const QWidget *widget);
// Two fields that share a column, a percentage and its amount, have less padding.
TZUTILITY_EXPORT void setShared(QWidget *widget);
TZUTILITY_EXPORT bool isShared(const QWidget *widget);
// A bar or a footer: surface, with a line at its edge.
enum class Bar {
    None,
    Top,   // line below
    Bottom // line above
};
TZUTILITY_EXPORT void setBar(QWidget *widget, Bar bar);
TZUTILITY_EXPORT Bar bar(const QWidget *widget);

}
