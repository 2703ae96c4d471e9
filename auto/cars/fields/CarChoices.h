// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QComboBox;

// The choices that the car and demand lists search by.
namespace CarChoices {

// Fill a filter's drop-down: "همه" with the key 0 first, then the brands of the catalog in the order of their keys, or the
// colours of the suite's items by name. Entry data is the key. What was chosen before stays chosen where it still is.
void fillTypes(QComboBox *combo);
void fillColors(QComboBox *combo);

// Key of the chosen entry, 0 when none is.
int chosenKey(const QComboBox *combo);
// An unknown key chooses the first entry.
void choose(QComboBox *combo, int key);

}
