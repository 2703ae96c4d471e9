// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/instalments/StoredInstalments.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "host/demo/DemoRandom.h"
#include "suite/treasury/receiving/ReceiptPosting.h"

#include <QDate>

// What the demo office has received and paid for its latest contracts: commissions, most of them settled; for instalment sales the
// plan, its cheques on their way, and instalments paid, paid in part, and overdue. All by the units that the windows use, as the
// user who is logged in.
class DemoMoney
{
public:
    // Today is the last of the days.
    DemoMoney(const QDate &firstDay, const QDate &today, DemoRandom &random);

    // For so many contracts at most. Belongs inside a transaction.
    void write(int contracts);

private:
    void writeCommission(const CTblAutomobilContracts &contract, int side);
    void writeSale(const CTblAutomobilContracts &contract);
    void writePlan(const CTblAutomobilContracts &contract);
    void writeCheques(const CTblAutomobilContracts &contract);
    void sendOn(int chequeID, const QDate &due);
    void writeInstalments(const CTblAutomobilContracts &contract);
    void writeCorrection(const CTblAutomobilContracts &contract);
    ReceiptPosting::Handover handover(int personID, const QDate &day);
    QDate soonAfter(const QDate &day, int days);

    const QDate m_firstDay;
    const QDate m_today;
    DemoRandom &m_random;
    int m_cheques = 0;
    int m_presented = 0;
    bool m_corrected = false;
};
