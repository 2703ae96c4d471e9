// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/cars/CarSale.h"

#include <optional>

class CTblAutomobilContracts;
class QWidget;

// The car that the contract in the editor's window was made from: whether it may be taken, what becomes of its sale page, and what is written
// along with the contract.
class CarOfContract
{
public:
    // contractID 0: a contract that has none.
    explicit CarOfContract(int contractID);

    // 0: none.
    int carID() const { return m_car; }
    // Asks where the car stands in another open contract. False: the user does not take it.
    [[nodiscard]] bool mayTake(int carID, QWidget *parent);
    void take(int carID) { m_car = carID; }

    // Asks whether the car's sale page is to be filled, where the contract sells a car that was taken in this window and is not sold yet.
    void askAboutSale(int contractType, bool isActive, QWidget *parent);
    // In the unit that saves the contract, behind its row. Throws CarSale::Changed.
    void write(CTblAutomobilContracts &contract) const;
    // Says what another desk did and asks whether the contract is saved all the same, with nothing done to the car. True: save again.
    [[nodiscard]] bool goesOnAfter(const CarSale::Changed &changed, QWidget *parent);

private:
    int m_contract;
    int m_stored; // as the database has it
    int m_car;
    int m_knownContract = 0;             // open, of the same car, and the user goes on all the same
    std::optional<CarSale::Seen> m_sale; // to be filled
};
