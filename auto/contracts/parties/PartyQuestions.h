// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QWidget;

// What the user is asked about a party that was typed into a contract by hand, from whom money is wanted.
namespace PartyQuestions {

// Offers to enter the party in the list of persons, on the spot: the person's editor opens with what the contract says of him, and a
// person who has his national code already is offered instead. Key of the person who is that side of the contract now; 0 where
// nothing was changed, and the user knows why. Nothing is asked (0) where there is nobody to enter: PartyEntering::of.
int enter(int contractID, int side, QWidget *parent);

}
