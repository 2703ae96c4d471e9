// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QWidget;

// Receiving the commission from a party of a contract, with what the user is asked on the way.
namespace SettlementQuestions {

// Opens the receipt's window with what that side still owes. Asks first where nothing is left, and offers to enter a party that was
// typed by hand in the list of persons. True when the contract or what was received for it is another than before. Nothing for a
// contract that is gone.
bool settle(int contractID, int side, QWidget *parent);

}
