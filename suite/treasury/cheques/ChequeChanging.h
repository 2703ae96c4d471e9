// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/records/ChequeStates.h"
#include "suite/treasury/receiving/ReceiptPosting.h"

#include <QDateTime>
#include <QString>

class CTblCheques;

// Brings cheques from one state into another, with the document of the step, and takes the last step back.
namespace ChequeChanging {

// The form of the rights: Modify changes a state, Delete takes a step back.
TZTREASURYDATA_EXPORT QString rightsForm();

// How far a cheque had come when a window read it.
struct Seen
{
    int chequeID = 0; // 0: the cheque is gone
    ChequeState state = ChequeState::InHand;
    int lastChange = 0; // key of its last valid step; 0: it has had none
};
TZTREASURYDATA_EXPORT Seen seen(int chequeID, int database = 0);

// What messages and documents call it, as "چک دریافتی شماره 1234، بانک ملت".
TZTREASURYDATA_EXPORT QString nameOf(const CTblCheques &cheque);

struct Change
{
    Seen seen;
    ChequeState to = ChequeState::Deposited;
    QDateTime date;
    int account = 0;    // where ChequeStates::needsAccount asks for one
    int endorsedID = 0; // where ChequeStates::needsPerson does
    QString desc;
    // What an endorsed cheque pays of what the endorsee has to get, in parts that add up to it; empty: all of it on account. Each is
    // a payment on the step's document.
    QList<ReceiptPosting::Part> pays = {};
};

struct Changed
{
    int changeID = 0;
    int docNum = 0; // 0: nothing was booked
    int fiscalYear = 0;
};

// One unit: the step, its document, and whether the cheque's receipts or payments count, with what their records keep of that. Throws
// KAccountingError, with nothing changed: without the right, in a closed database, when the cheque is no longer as it was seen (who
// changed it, when), for a step that does not follow, when a record's owner is not there. A wrong entry is a FieldRefused by its
// name: "iState", "date", "iAccount", "iEndorsedID".
TZTREASURYDATA_EXPORT Changed change(const Change &change, int database = 0);

// Makes the last valid step void, with reason, user and time; state and receipts are again what they were before it. Its document
// is emptied and void, or reversed by one of today if it is of an earlier fiscal year. Throws as change does; FieldRefused
// "sVoidReason" without a reason.
TZTREASURYDATA_EXPORT void undoLast(const Seen &seen, const QString &reason, int database = 0);

}
