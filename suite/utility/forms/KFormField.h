// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// One field of an editor page: a column of the record and the control that shows it.
struct KFormField
{
    enum class Kind {
        Text,           // limited to its column's length unless maxLength says less
        LongText,       // the same over several lines
        Plate,          // a text that may be a number plate, stored in one spelling
        Money,          // unsigned money
        Percent,        // 0 to 100
        Integer,        // whole number, 0 and above unless a range is given
        Date,           // Shamsi date; empty is the empty date
        Choice,         // drop-down; the position is stored
        EditableChoice, // drop-down with free text; the text is stored
        Lookup,         // drop-down that the page fills, or of choices and their keys; the entry's data is stored, a key;
                        // 0 when nothing is chosen
        Flag            // check box, stored as 0 or 1; the label is its caption
    };

    QString column;
    QString label; // shown before the control and its accessible name
    Kind kind = Kind::Text;
    QString accessibleName = {}; // where the label alone does not set the field apart from its neighbours
    QStringList choices = {};
    int maxLength = 0; // characters; 0: as many as the column holds
    double minimum = 0;
    double maximum = 0;       // a range of Integer; both 0: the kind's own
    bool readOnly = false;    // never editable, and never written
    bool displayed = true;    // false: the control exists and keeps its value, but is not shown
    bool inWords = false;     // Money: the amount in words stands below the control
    QList<int> keys = {};     // Lookup: the key of each of the choices; empty where the page fills the drop-down
    bool leftToRight = false; // Text: a code, read from left to right
    bool hasButton = false;   // a button "..." stands behind the control, for as long as the field can be edited
    bool hasArrows = false;   // Integer: buttons that step up and down, as the arrow keys then do
};
