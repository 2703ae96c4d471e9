// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/StoredInstalments.h"

#include "auto/db/CTblAutomobilPayments.h"
#include "auto/db/CTblTemp.h"
#include "suite/accounting/CDBSetting.h"

#include <QSet>

namespace {

QString ofContract(int contractID)
{
    QString condition = QStringLiteral("iAutomobilContractID=%1").arg(contractID);
    if (const int department = GetDBSetting()->GetDepartmentID(); department > 0)
        condition += QStringLiteral(" AND iDepartmentID=%1").arg(department);
    return condition;
}

QSet<int> paidIDs(int contractID)
{
    QSet<int> ids;
    CTblTemp statement;
    statement.Open(false, false, true);
    statement.ExecuteQuery(QStringLiteral("SELECT iID FROM AutomobilPayments WHERE iStatus=1 AND ") + ofContract(contractID));
    while (statement.HasResultRow()) {
        ids.insert(statement.GetLongFieldValue(0));
        statement.MoveNextResult();
    }
    return ids;
}

}

std::vector<StoredInstalments::Row> StoredInstalments::load(int contractID)
{
    const QSet<int> paid = paidIDs(contractID);
    std::vector<Row> rows;
    CTblAutomobilPayments payments;
    payments.m_filter = ofContract(contractID);
    payments.m_sort = QStringLiteral("date,iID");
    for (payments.Open(true, true, true); !payments.IsEOF(); payments.MoveNext())
        rows.push_back({payments.m_iID, payments.m_iNum, payments.m_date, payments.m_dAmount, payments.m_dExtra, payments.m_sDesc,
                        paid.contains(payments.m_iID), payments.m_iDays, payments.m_iMonths, payments.m_bPercentMonthly != 0});
    return rows;
}

void StoredInstalments::save(int contractID, int contractCode, int personID, const InstalmentTerms &terms,
                             const InstalmentPlan &plan)
{
    remove(contractID);
    CTblAutomobilPayments payment;
    payment.Open(true, false, true);
    int number = 0;
    for (const Instalment &instalment : plan.instalments) {
        payment.AddNew();
        payment.m_iDepartmentID = GetDBSetting()->GetDepartmentID();
        payment.m_iAutomobilContractID = contractID;
        payment.m_iPersonID = personID;
        payment.m_iNum = ++number;
        payment.m_date = QDateTime(instalment.due, QTime(0, 0), Qt::UTC);
        payment.m_sDesc = QStringLiteral("قسط شماره %1 قرارداد %2").arg(number).arg(contractCode);
        payment.m_dAmount = instalment.amount;
        payment.m_dExtra = plan.interest / terms.count;
        payment.m_iUserID = GetDBSetting()->GetUserID();
        (terms.intervalUnit == IntervalUnit::Days ? payment.m_iDays : payment.m_iMonths) = terms.interval;
        payment.m_bPercentMonthly = terms.rateUnit == RateUnit::Monthly ? 1 : 0;
        payment.Update(true);
    }
}

void StoredInstalments::remove(int contractID)
{
    CTblTemp statement;
    statement.Open(true, false, true);
    statement.ExecuteQuery(QStringLiteral("DELETE FROM AutomobilPayments WHERE ") + ofContract(contractID));
}

void StoredInstalments::markPaid(int paymentID)
{
    CTblTemp statement;
    statement.Open(true, false, true);
    statement.FormatAndExecuteQuery("UPDATE AutomobilPayments SET iStatus=1 WHERE iID=%d", paymentID);
}
