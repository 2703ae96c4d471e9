// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"

// The choices that the car and demand lists search by: "همه" with the key 0 first, then the keys and names as they are now.
namespace CarChoices {

// The brands of the catalog in the order of their keys.
QList<KListFilter::Choice> types();
// The colours of the suite's items by name.
QList<KListFilter::Choice> colors();
// That both will be asked (KReadAhead).
void expect();

}
