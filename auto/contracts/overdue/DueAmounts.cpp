// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/overdue/DueAmounts.h"

#include "auto/contracts/instalments/InstalmentPlan.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/treasury/records/CTblReceipts.h"

#include <vector>

namespace {

struct Plan
{
    QList<int> keys;
    std::vector<double> amounts;
};

void take(Plan &plan, int decimals, QHash<int, DueAmounts::Amount> &amounts)
{
    const std::vector<double> toReceive = amountsToReceive(plan.amounts, decimals);
    for (qsizetype index = 0; index < plan.keys.size(); ++index)
        amounts[plan.keys.at(index)].toReceive = toReceive.at(static_cast<size_t>(index));
    plan = {};
}

KSql plansStatement(const KSql &contracts)
{
    return "SELECT iID,iAutomobilContractID,dAmount,iDepartmentID FROM AutomobilPayments WHERE iAutomobilContractID IN (" + contracts
        + ") ORDER BY iAutomobilContractID,iDepartmentID,date,iID";
}

KSql receivedStatement(const KSql &contracts)
{
    return KSql::formatted("SELECT iPaymentID,SUM(IF(iKind=%1,-dAmount,dAmount)) FROM Receipts WHERE iTable=%2 AND iPaymentID>0 AND iStatus=%3 AND iRecordID IN (",
                           int(CTblReceipts::paid), int(CTblAutomobilContracts::recordKind), int(CTblReceipts::valid))
        + contracts + ") GROUP BY iPaymentID";
}

void readPlans(const KSql &contracts, int decimals, int database, QHash<int, DueAmounts::Amount> &amounts)
{
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(plansStatement(contracts));
    Plan plan;
    std::pair<int, int> of; // contract and department: each department has plans of its own
    for (; query.HasResultRow(); query.MoveNextResult()) {
        const std::pair<int, int> next{query.GetLongFieldValue(1), query.GetLongFieldValue(3)};
        if (of != next)
            take(plan, decimals, amounts);
        of = next;
        plan.keys.append(query.GetLongFieldValue(0));
        plan.amounts.push_back(query.GetDoubleFieldValue(2));
    }
    take(plan, decimals, amounts);
}

}

QHash<int, DueAmounts::Amount> DueAmounts::read(const QList<int> &contracts, int decimals, int database)
{
    QHash<int, Amount> amounts;
    if (contracts.isEmpty())
        return amounts;
    const KSql keys = KSql::list(contracts);
    const KReadAhead reading(database);
    KReadAhead::expect(receivedStatement(keys), database);
    readPlans(keys, decimals, database, amounts);
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(receivedStatement(keys));
    for (; query.HasResultRow(); query.MoveNextResult()) {
        const auto found = amounts.find(query.GetLongFieldValue(0));
        if (found != amounts.end())
            found->received = query.GetDoubleFieldValue(1);
    }
    return amounts;
}
