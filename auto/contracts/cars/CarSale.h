// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/db/records/RowMerge.h"

#include <QString>

#include <optional>

class CTblAutomobilContracts;

// The sale page of a car as its contract fills it, and empties it again.
namespace CarSale {

// A car that is not sold yet, as the user saw it when he was asked.
struct Seen
{
    int carID = 0;
    QString name;    // as people call it: brand, model, plate
    KRowValues sale; // the columns of its sale
};

// Another desk has sold, changed or deleted the car since, or begun a contract of it. Nothing was written.
class Changed : public KAccountingError
{
public:
    enum class Reason {
        Gone,
        Sale,
        Contract
    };
    Changed(Reason reason, const QString &message, int contractID = 0);
    ~Changed() override;

    Reason reason() const { return m_reason; }
    // The contract that was begun; 0 for anything else.
    int contractID() const { return m_contractID; }

private:
    Reason m_reason;
    int m_contractID;
};

// Nothing for a car that is gone or sold, and for a user who may not change cars.
std::optional<Seen> unsold(int carID, int database = 0);
// Writes into the car what the contract says and the car does not say yet, and that it is sold. Joins the caller's transaction. Throws Changed.
void fill(const CTblAutomobilContracts &contract, const Seen &seen);

// The car whose sale is that of the contract: sold, for its price, to its buyer; 0: there is none.
int soldBy(const CTblAutomobilContracts &contract);
// Empties what the contract had filled, and the car is for sale again; what has been changed since stays. Joins the caller's transaction.
// Nothing for a car that soldBy does not name any more.
void takeBack(const CTblAutomobilContracts &contract);

}
