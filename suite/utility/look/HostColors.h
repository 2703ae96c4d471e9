// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QColor>
#include <QPalette>

#include <span>

// The colours of the program, each by its role, in a light and a dark look. No window names a colour of its own: it asks here, or
// uses the application's palette, which is filled from this table.
namespace HostColors {

enum class Look {
    Light,
    Dark
};

enum class Role {
    Window,   // ground of windows
    Surface,  // cards, lists, fields, menus, the main window's bar
    Sunken,   // read-only fields
    Header,   // title row of lists
    Stripe,   // every second row
    Hover,    // under the pointer
    Line,     // borders of cards, rules
    Edge,     // borders of fields and buttons
    Text,     // all that is read first
    Quiet,    // labels, second lines, titles of columns
    Hint,     // placeholders, amounts in words
    Disabled, // disabled alone
    Accent,   // primary button, focus ring, marks, current tab
    AccentHover,
    AccentPress,
    OnAccent, // text on accent
    Link,     // text of the current tab, what leads on
    Select,   // selected row, pressed, switched on
    OnSelect,
    Danger, // overdue, error, delete
    DangerSoft,
    Warn, // due today, not saved
    WarnSoft,
    Good, // done, paid, available
    GoodSoft,
    Info, // counts, active filter
    InfoSoft,
    NeutralSoft, // chips without a state; their text is Quiet
    Icon,        // the two strokes of every icon
    Icon2,
    Chart,      // first course of a chart
    ChartPast,  // earlier months
    ChartOther, // second course
    Sky,        // behind a car without a picture
    Ground,
    Shadow,
    Count
};

// The look that is in use; light at first.
TZUTILITY_EXPORT Look look();
// What is painted from now on uses it; the application's palette is set by whoever chooses the look.
TZUTILITY_EXPORT void setLook(Look look);

TZUTILITY_EXPORT QColor of(Role role);
TZUTILITY_EXPORT QColor of(Role role, Look look);
// The role's name in the table, such as "dangerSoft".
TZUTILITY_EXPORT const char *name(Role role);

// The palette of a look. Roles that Qt has no word for stand where nothing of ours uses Qt's meaning: quietText and dangerText.
TZUTILITY_EXPORT QPalette palette(Look look);
// For QWidget::setForegroundRole: text that follows the palette by itself.
inline constexpr QPalette::ColorRole quietText = QPalette::LinkVisited;
inline constexpr QPalette::ColorRole hintText = QPalette::PlaceholderText;
inline constexpr QPalette::ColorRole dangerText = QPalette::BrightText;

// The pairs of ink and ground that occur. Text has a contrast of at least 4.5 to 1, what is only a border or a mark 3 to 1; a test
// computes it. A new pair comes here first.
struct Pair
{
    Role ink;
    Role ground;
    bool isText = true;
};
TZUTILITY_EXPORT std::span<const Pair> pairs();
// 1 to 21, as the Web Content Accessibility Guidelines define it.
TZUTILITY_EXPORT double contrast(const QColor &one, const QColor &other);

}
