// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// Values of the input parameters, as rows of the suite's Items.
namespace InputParameterValues {

// Whether any item other than exceptID (0: any item at all) has the name, whatever its type: so the office keeps one word
// for one thing.
bool isNameTaken(const QString &name, int exceptID);

// Throws CMySQLException (BadCharacter, ValueTooLong) for a name that the table does not hold.
void requireStorable(const QString &name);

}
