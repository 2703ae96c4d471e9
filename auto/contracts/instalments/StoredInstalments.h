// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/instalments/InstalmentPlan.h"

#include <QDateTime>
#include <QString>

#include <vector>

// The instalments of a contract as the database keeps them. Where the office works by departments and one is current, only
// those of that department.
namespace StoredInstalments {

struct Row
{
    int id = 0;     // key of the payment
    int number = 0; // from 1
    QDateTime due;
    double amount = 0;
    double interest = 0; // within amount
    QString description;
    bool paid = false;
    int days = 0; // interval, in days or in months
    int months = 0;
    bool monthlyRate = false;
    InterestMethod method = InterestMethod::WholePrincipal;
};

// In the order of their dates.
std::vector<Row> load(int contractID);

// Deletes the contract's earlier plan and adds the new one, row by row: when an insert fails (CMySQLException), the rows
// before it stay and the earlier plan is gone.
void save(int contractID, int contractCode, int personID, const InstalmentTerms &terms, const InstalmentPlan &plan);

// The terms that a stored plan was made of, from its rows: the rate from the interest, the start from the first date.
// There must be a row.
InstalmentTerms termsOf(const std::vector<Row> &rows);

void remove(int contractID);

// Sets the paid state, which the record class does not bind.
void markPaid(int paymentID);

}
