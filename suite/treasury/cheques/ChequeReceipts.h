// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/records/ReceiptOwners.h"
#include "suite/treasury/receiving/ReceiptPosting.h"

#include <map>

class CTblChequeChanges;
class CTblCheques;

// The receipts and payments behind one cheque: those by which it came in or went out, and those by which an endorsed one paid somebody
// else. Used by the unit that moves the cheque.
class ChequeReceipts
{
public:
    // Reads what they are for, which never changes: before the unit, whose first reading is a lock.
    ChequeReceipts(int chequeID, int database);

    // The records of the parts that an endorsement pays are locked too.
    void add(const QList<ReceiptPosting::Part> &parts);
    // First in the unit. The records of parts must be there and stand; those of the receipts too where these are to count again.
    void lock(bool countAgain) const;
    // What the purposes of the parts require, once the cheque is locked.
    static void require(const QList<ReceiptPosting::Part> &parts);

    // They count, or count no more, as the cheque in its state does. from: the state that it came from. Throws KAccountingError where
    // a record's owner is not there.
    void follow(const CTblCheques &cheque, int from) const;
    // The payments of an endorsement, on the step's document.
    void payEndorsee(const CTblCheques &cheque, const CTblChequeChanges &step, const QList<ReceiptPosting::Part> &parts) const;
    // The step is void: so are the payments of an endorsement.
    void takeBack(const CTblCheques &cheque, const CTblChequeChanges &step) const;

private:
    void recount(const CTblReceipts &receipt) const;

    // In the order in which every unit locks them. Null: the owner is not there.
    std::map<std::pair<int, int>, const ReceiptOwner *> m_records;
    std::map<std::pair<int, int>, const ReceiptOwner *> m_paid; // of parts
};
