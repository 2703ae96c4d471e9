// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/DocumentRow.h"
#include "suite/treasury/TzTreasuryDataExport.h"

#include <QList>
#include <QString>

// Cheques.iState. The numbers are stored, so they never move.
enum class ChequeState {
    InHand = 0,    // received and kept, or given and not yet presented
    Deposited = 1, // handed to a bank for collection
    Cleared = 2,
    Bounced = 3,
    Returned = 4, // given back to whoever it came from, or by whoever it went to
    Endorsed = 5, // a received one, passed on to somebody else
    Void = 6      // its receipt or payment was made void
};

// Rules of a cheque's way: which state follows which, and what each step books.
namespace ChequeStates {

// given: one that the office gave, where that has another word.
TZTREASURYDATA_EXPORT QString name(ChequeState state, bool given = false);
// The states that a user may bring a cheque into, in the order in which they are offered; given: one that the office gave.
TZTREASURYDATA_EXPORT QList<ChequeState> following(ChequeState state, bool given);
// Whether a receipt by this cheque counts as money received, a payment as money paid.
TZTREASURYDATA_EXPORT bool counts(ChequeState state);
// Whether somebody must still attend to the cheque: it is neither collected nor given away nor back.
TZTREASURYDATA_EXPORT bool isOpen(ChequeState state);
// Whether the step asks for a person, to whom the cheque is endorsed; for the account where it is deposited or cleared.
TZTREASURYDATA_EXPORT bool needsPerson(ChequeState to);
TZTREASURYDATA_EXPORT bool needsAccount(ChequeState from, ChequeState to);

// One step of a cheque, as its document sees it.
struct Step
{
    bool given = false;
    ChequeState from = ChequeState::InHand;
    ChequeState to = ChequeState::Deposited;
    double amount = 0;  // of the cheque, in the suite's money unit
    int personID = 0;   // from or to whom the cheque came or went
    int endorsedID = 0; // to whom it is or was endorsed
    int account = 0;    // the bank account (or cash box) that it is cleared at
    QString desc;
};
// A pair of rows that balances; nothing where the step moves no money between accounts.
TZTREASURYDATA_EXPORT QList<DocumentRow> rowsOf(const Step &step);

}
