// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/instalments/InstalmentPlan.h"
#include "suite/accounting/frame/KAccountingError.h"

#include <QDateTime>
#include <QList>
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

// The stored plan is another than the user had seen. Nothing was written.
class Changed : public KAccountingError
{
public:
    Changed(const QString &userMessage, QList<int> stored);
    ~Changed() override;

    // The keys of the plan as it is now.
    QList<int> stored() const { return m_stored; }

private:
    QList<int> m_stored;
};

// The keys of a plan, to tell it from another one.
QList<int> keysOf(const std::vector<Row> &rows);

// Whom and what a plan is for.
struct Owner
{
    int contractID = 0;
    int contractCode = 0;
    int personID = 0;
};

// Replaces the contract's earlier plan, of which the user saw the rows with these keys, by the new one: all of it, or nothing.
// Throws Changed; and KAccountingError when an instalment is paid by now, or the contract is gone.
void save(const Owner &owner, const QList<int> &seen, const InstalmentTerms &terms, const InstalmentPlan &plan);

// The terms that a stored plan was made of, from its rows: the rate from the interest, the start from the first date.
// There must be a row.
InstalmentTerms termsOf(const std::vector<Row> &rows);

// Deletes the plan of which the user saw the rows with these keys. Throws as save does.
void remove(int contractID, const QList<int> &seen);

// The text that receiving an instalment proposes for the receipt.
QString receiptText(int number, int contractCode);

enum class State {
    Unpaid,
    Paid,
    Gone // no longer in the plan of the contract
};
// Nobody else changes the instalment until the transaction ends.
State lock(int contractID, int paymentID);
// Sets the paid state, which the record class does not bind. Within a transaction that has locked the instalment.
void setPaid(int paymentID, bool paid);

}
