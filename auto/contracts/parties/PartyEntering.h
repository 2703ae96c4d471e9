// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

class CTblAutomobilContracts;

// Makes a party that was typed into a contract by hand a person of the list of persons, so that money can be received from him and
// the contract's document can name him.
namespace PartyEntering {

// What the contract says of him.
struct Party
{
    int contractID = 0;
    int side = 0; // 1 or 2
    QString name;
    QString nationalCode;
    QString mobile;
    QString telephone;
    QString address;

    bool operator==(const Party &) const = default;
};

// None where that side is in the list of persons already, is the showroom itself, or has no name. The contract is loaded.
std::optional<Party> of(const CTblAutomobilContracts &contract, int side);

// Key of a person of the list who has the party's national code; 0: nobody has it, or the contract does not say it.
int knownPerson(const Party &party);

// Puts the person into the contract in place of the party, in one unit of work: the person's key and what the list of persons knows of
// him; as kind an ordinary party, because that is what a person of the list is, whom the editor shows and reports count. The contract's
// document is rewritten if it has one, and the instalments of its plan become that person's where the party is the buyer. Returns the
// fiscal year of a document that stays as it is, because the books of that year are not those of the current one: what it charges
// does not stand under the person's name. 0 otherwise. Throws
// KAccountingError, with nothing changed: when the party is another by now (by whom), the contract is gone, void or archived, the
// person is gone or already its other side, without the right to change contracts, and in a closed database.
int enter(const Party &seen, int personID);

}
