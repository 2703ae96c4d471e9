// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringView>

// What of a contract's matter (its vehicle, payment, registry and terms) a type of contract uses. A letter contract and an
// unknown type have no matter at all.
namespace MatterVisibility {

// A contract of that type has a vehicle page.
bool hasPage(int contractType);

// The column belongs to the matter, whether a type uses it or not.
bool isMatter(QStringView column);

// The column's field is shown, validated and written. True for a column that the rule does not name, in a type that has a
// matter.
bool isUsed(int contractType, QStringView column);
// Any of the terms of a rent or of an instalment sale.
bool hasTerms(int contractType);
// A plan of instalments, and the period that an instalment sale calls its own.
bool hasInstalments(int contractType);

}
