// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

class CTblAutomobilContracts;

// The contract's notes ("تبصره"): up to ten short texts, one to each of sNote1 to sNote10, shown as one line.
namespace ContractNotes {

inline constexpr int most = 10;

// The notes that are set, in order.
QStringList notes(const CTblAutomobilContracts &contract);
// Why these notes cannot be kept, in words for the user: too many, or one too long for its column. Empty when they can.
QString problem(const QStringList &notes);
// Sets the notes in order and empties the remaining columns. More than ten are cut; check first.
void setNotes(CTblAutomobilContracts &contract, const QStringList &notes);

}
