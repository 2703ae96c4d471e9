// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

class QWidget;

// The measures of windows in pixels at 100 %, for the font of 10 points. scaled turns one into pixels for the application's
// font; heights of controls come from the font and are at least these.
namespace LookSizes {

inline constexpr int unit = 8;
inline constexpr int windowMargin = 16;
inline constexpr int cardGap = 8;
inline constexpr int sideGap = 16;     // between cards side by side
inline constexpr int cardPadding = 16; // border included
inline constexpr int cardCorner = 8;
inline constexpr int gutter = 16;      // between the columns of a form
inline constexpr int halfGutter = 48;  // between the halves of eight columns: padding, gap and padding of two cards
inline constexpr int labelLine = 20;   // above a control
inline constexpr int control = 28;     // in forms
inline constexpr int tallControl = 32; // in filters, bars and footers; buttons
inline constexpr int controlCorner = 5;
inline constexpr int buttonCorner = 6;
inline constexpr int fieldPadding = 8;
inline constexpr int buttonPadding = 12;
inline constexpr int primaryPadding = 20;
inline constexpr int iconSize = 18;
inline constexpr int iconGap = 8;
inline constexpr int topBar = 48;
inline constexpr int workTabs = 36;
inline constexpr int editorTabs = 44;
inline constexpr int footer = 52;
inline constexpr int statusLine = 28;
inline constexpr int titleRow = 32; // of a list
inline constexpr int row = 28;      // of a list, and at least the font's height and 8
inline constexpr int rowBar = 4;    // at the beginning of the selected row
inline constexpr int chip = 20;
inline constexpr int ring = 2;
inline constexpr int wide = 1200;  // a page of so many has eight columns and cards side by side
inline constexpr int narrow = 720; // below, it has two

// For a font larger than 10 points more, never less than the number itself.
TZUTILITY_EXPORT int scaled(int pixels);
// No window is larger than the screen's free area, its frame included. Bounds the size and moves the window inside.
TZUTILITY_EXPORT void keepOnScreen(QWidget *window);

}
