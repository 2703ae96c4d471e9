// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/instalments/InstalmentPlan.h"
#include "auto/contracts/instalments/InstalmentState.h"
#include "auto/contracts/instalments/PlanAgreement.h"
#include "suite/accounting/frame/KAccountingError.h"

#include <QDateTime>
#include <QList>
#include <QString>

#include <vector>

class CTblAutomobilContracts;

// The instalments of a contract as the database keeps them.
namespace StoredInstalments {

struct Row
{
    int id = 0; // key of the payment
    int departmentID = 0;
    int number = 0; // from 1
    QDateTime date; // when it is due
    double amount = 0;
    double interest = 0; // within amount
    QString description;
    bool paid = false;   // as the row is marked; its state says how far it is
    int personID = 0;    // who pays it
    double due = 0;      // what is to be received for it, in the decimals of the money unit
    double received = 0; // by the receipts that stand, less what was paid back
    int days = 0;        // interval, in days or in months
    int months = 0;
    bool monthlyRate = false;
    InterestMethod method = InterestMethod::WholePrincipal;

    InstalmentState state() const { return InstalmentState::of(due, received, paid); }
};

enum class Scope {
    Department,    // where one is current, only its instalments: a plan as its window shows it
    AllDepartments // all instalments of the contract: what money is received for
};
// In the order of their dates.
std::vector<Row> load(int contractID, Scope scope = Scope::Department);
// The same within a transaction that holds the contract's lock: as they are now, and so until it ends.
std::vector<Row> loadLocked(int contractID, Scope scope = Scope::Department);
// That loadLocked will be asked (KReadAhead).
void expectLocked(int contractID);
// What agrees with the contract, or does not. principal: what is to be split now. There must be a row.
PlanFigures figuresOf(const std::vector<Row> &rows, double principal);

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
// Who changed the plan of the contract last, and when (RowChanged::lastChange).
QString lastChange(int contractID);

// Whom and what a plan is for.
struct Owner
{
    int contractID = 0;
    int contractCode = 0;
    int personID = 0;
};

// Replaces the contract's earlier plan in the current department, of which the user saw the rows with these keys, by the new one: all of it, or nothing.
// The contract's document follows, where it holds the sale. Throws Changed; and KAccountingError when something was received for an
// instalment by now, or the contract is gone.
void save(const Owner &owner, const QList<int> &seen, const InstalmentTerms &terms, const InstalmentPlan &plan);

// The terms that a stored plan was made of, from its rows: the rate from the interest, the start from the first date.
// There must be a row.
InstalmentTerms termsOf(const std::vector<Row> &rows);

// Deletes the plan of which the user saw the rows with these keys. Throws as save does.
void remove(int contractID, const QList<int> &seen);

// The text that receiving an instalment proposes for the receipt.
QString receiptText(int number, int contractCode);

// Within a transaction that has locked the contract: spreads what is open anew (PlanSpread) and makes it the contract's present
// buyer's; or deletes the plan. The document is left to the caller, who saves the contract. rows: as loadLocked found them.
void spread(const CTblAutomobilContracts &contract, const std::vector<Row> &rows, double principal);
void removeLocked(int contractID);

enum class State {
    Unpaid,
    Paid,
    Gone // no longer in the plan of the contract
};
// How its row is marked. Nobody else changes the instalment until the transaction ends.
State lock(int contractID, int paymentID);
// Sets that mark, which the record class does not bind. Within a transaction that has locked the instalment.
void setPaid(int paymentID, bool paid);
// Marks the instalment by what its receipts say. Within a transaction that has locked the contract, after a receipt for it was
// saved or no longer counts. Nothing for one that is gone.
void recount(int contractID, int paymentID);

}
