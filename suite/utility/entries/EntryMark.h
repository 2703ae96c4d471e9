// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPalette>
#include <QString>

class QHelpEvent;
class QWidget;

// What the entry lines share in how they look, above all in showing that an entry is refused. Inside the library only.

// A frame in the colour of errors around the entry, drawn over it.
void paintEntryMark(QWidget *edit);
// Says why beside the line's label, or under the line while it has the focus where no label has the room, and to screen readers behind the line's own description; an empty
// error takes that back.
void tellEntryError(QWidget *edit, const QString &error);
// The tooltip of a marked line is its error.
void showErrorToolTip(QWidget *edit, const QString &error, const QHelpEvent *event);
// Colours of an entry line: the ground of a read-only one is sunken. For lines in the program's colours.
QPalette entryPalette(bool readOnly);
