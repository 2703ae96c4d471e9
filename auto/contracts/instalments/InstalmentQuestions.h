// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QWidget;

// What receiving an instalment asks the user, from whichever window it is done.
namespace InstalmentQuestions {

// Opens the window that receives money, with the rest of the instalment; before, for a buyer typed in by hand, the one that enters him
// as a person. What keeps it from being received is told. True when something was received.
bool receive(int contractID, int paymentID, QWidget *parent);

}
