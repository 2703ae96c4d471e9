// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QString>

class FormGrid;
class QBoxLayout;
class QFormLayout;
class QGridLayout;
class QLabel;
class QPushButton;
class QWidget;

// A control and its caption: the label before it, the label's buddy and what a screen reader says are one text.

// A caption as a label shows it: one in Latin letters would be read from left to right, with its colon on the wrong side,
// away from the control.
TZUTILITY_EXPORT QString labelText(const QString &caption);

// Sets the accessible name, also on the entry line that a spin box or an editable drop-down passes the focus to.
TZUTILITY_EXPORT void nameControl(QWidget *control, const QString &name);

// A new label beside the control, whose buddy it is. The control keeps a name that it already has; one without is named after
// the caption. A name that is passed takes precedence, for a caption such as "تا :" that does not set a control apart.
[[nodiscard]] TZUTILITY_EXPORT QLabel *labelFor(const QString &caption, QWidget *control, const QString &accessibleName = {});

// Adds the label and then the control, with the names of labelFor. In a grid the label takes the cell and the
// control the one behind it, over span columns.
TZUTILITY_EXPORT QLabel *addLabelled(QFormLayout *form, const QString &caption, QWidget *control);
TZUTILITY_EXPORT QLabel *addLabelled(QBoxLayout *line, const QString &caption, QWidget *control, int stretch = 0);
TZUTILITY_EXPORT QLabel *addLabelled(QGridLayout *grid, int row, int column, const QString &caption, QWidget *control, int span = 1);

// On a form grid: the label above the control, which gets a FieldNote beside its label.
TZUTILITY_EXPORT QLabel *addLabelled(FormGrid *grid, const QString &caption, QWidget *control, int span = 1);

// Adds a command button that a screen reader announces by its caption, and that Return in an entry line does not press. icon is a
// path, or empty.
TZUTILITY_EXPORT QPushButton *addButton(QBoxLayout *line, const QString &caption, const QString &icon = {});
