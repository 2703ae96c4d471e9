// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/StoredInstalments.h"

#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilPayments.h"
#include "auto/db/ContractLock.h"
#include "suite/db/CTblTemp.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/db/KChangeLog.h"
#include "suite/db/KTransaction.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QSet>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// The method of a plan, as iLevel of its rows keeps it.
constexpr int decliningLevel = 1;
constexpr int wholeLevel = 2;

// The day one step before the first instalment: the possible month lengths are tried for the one that leads to it.
QDate startBefore(const QDate &firstDue, const InstalmentTerms &terms)
{
    if (terms.intervalUnit == IntervalUnit::Days)
        return firstDue.addDays(-terms.interval);
    for (const int length : {31, 30, 29}) {
        const QDate start = firstDue.addDays(-length);
        const ShamsiDate shamsi = GetShamsi(start);
        if (shamsiDaysInMonth(shamsi.year, shamsi.month) == length)
            return start;
    }
    return firstDue;
}

KSql ofContract(int contractID)
{
    KSql condition = KSql::formatted("iAutomobilContractID=%1", contractID);
    if (const int department = GetDBSetting()->GetDepartmentID(); department > 0)
        condition += KSql::formatted(" AND iDepartmentID=%1", department);
    return condition;
}

QSet<int> paidIDs(int contractID)
{
    QSet<int> ids;
    CTblTemp statement;
    statement.Open(false, false, true);
    statement.ExecuteQuery("SELECT iID FROM AutomobilPayments WHERE iStatus=1 AND " + ofContract(contractID));
    while (statement.HasResultRow()) {
        ids.insert(statement.GetLongFieldValue(0));
        statement.MoveNextResult();
    }
    return ids;
}

// A plan has no row of its own, so that who changed it is noted for the contract under this name.
const QString planName = u"InstalmentPlan"_s;

void requireReplaceable(int contractID, const QList<int> &seen)
{
    CTblAutomobilContracts contract;
    ContractLock::take(contract, contractID);
    CTblTemp statement;
    statement.ExecuteQuery("SELECT iID,iStatus FROM AutomobilPayments WHERE " + ofContract(contractID) + " ORDER BY date,iID FOR UPDATE");
    QList<int> stored;
    for (; statement.HasResultRow(); statement.MoveNextResult()) {
        if (statement.GetLongFieldValue(1) != 0)
            throw KAccountingError(u"در این میان قسطی از این قرارداد دریافت شده است و برنامه اقساط آن دیگر تغییر نمی‌کند. چیزی ذخیره نشد."_s);
        stored.append(statement.GetLongFieldValue(0));
    }
    if (stored != seen)
        throw StoredInstalments::Changed(u"%1 برنامه اقساط این قرارداد را در این میان تغییر داده است. چیزی ذخیره نشد."_s.arg(RowChanged::lastChange(planName, contractID)),
                                         stored);
}

void deletePlan(int contractID)
{
    CTblTemp statement;
    statement.Open(true, false, true);
    statement.ExecuteQuery("DELETE FROM AutomobilPayments WHERE " + ofContract(contractID));
}

void addInstalment(CTblAutomobilPayments &payment, const StoredInstalments::Owner &owner, const InstalmentTerms &terms, const Instalment &instalment)
{
    payment.m_iDepartmentID = GetDBSetting()->GetDepartmentID();
    payment.m_iAutomobilContractID = owner.contractID;
    payment.m_iPersonID = owner.personID;
    payment.m_date = QDateTime(instalment.due, QTime(0, 0), Qt::UTC);
    payment.m_sDesc = u"قسط شماره %1 قرارداد %2"_s.arg(payment.m_iNum).arg(owner.contractCode);
    payment.m_dAmount = instalment.amount;
    payment.m_iUserID = GetDBSetting()->GetUserID();
    (terms.intervalUnit == IntervalUnit::Days ? payment.m_iDays : payment.m_iMonths) = terms.interval;
    payment.m_iLevel = terms.method == InterestMethod::DecliningPrincipal ? decliningLevel : wholeLevel;
    payment.m_bPercentMonthly = terms.rateUnit == RateUnit::Monthly ? 1 : 0;
    payment.Update(true);
}

}

std::vector<StoredInstalments::Row> StoredInstalments::load(int contractID)
{
    const QSet<int> paid = paidIDs(contractID);
    std::vector<Row> rows;
    CTblAutomobilPayments payments;
    payments.m_filter = ofContract(contractID);
    payments.m_sort = "date,iID";
    for (payments.Open(true, true, true); !payments.IsEOF(); payments.MoveNext())
        rows.push_back({payments.m_iID, payments.m_iNum, payments.m_date, payments.m_dAmount, payments.m_dExtra, payments.m_sDesc,
                        paid.contains(payments.m_iID), payments.m_iDays, payments.m_iMonths, payments.m_bPercentMonthly != 0,
                        payments.m_iLevel == decliningLevel ? InterestMethod::DecliningPrincipal : InterestMethod::WholePrincipal});
    return rows;
}

StoredInstalments::Changed::Changed(const QString &userMessage, QList<int> stored)
    : KAccountingError(userMessage)
    , m_stored(std::move(stored))
{
}

StoredInstalments::Changed::~Changed() = default;

QList<int> StoredInstalments::keysOf(const std::vector<Row> &rows)
{
    QList<int> keys;
    for (const Row &row : rows)
        keys.append(row.id);
    return keys;
}

void StoredInstalments::save(const Owner &owner, const QList<int> &seen, const InstalmentTerms &terms, const InstalmentPlan &plan)
{
    KTransaction::runReplayable([&] {
        OfficeClosing::requireOpen();
        requireReplaceable(owner.contractID, seen);
        deletePlan(owner.contractID);
        CTblAutomobilPayments payment;
        int number = 0;
        for (const Instalment &instalment : plan.instalments) {
            payment.AddNew();
            payment.m_iNum = ++number;
            payment.m_dExtra = plan.interest / terms.count;
            addInstalment(payment, owner, terms, instalment);
        }
        KChangeLog::note(planName, owner.contractID, KChange::Kind::Changed);
    });
}

InstalmentTerms StoredInstalments::termsOf(const std::vector<Row> &rows)
{
    InstalmentTerms terms;
    double interest = 0;
    for (const Row &row : rows) {
        terms.principal += row.amount - row.interest;
        interest += row.interest;
    }
    const Row &first = rows.front();
    terms.count = static_cast<int>(rows.size());
    terms.intervalUnit = first.days > 0 ? IntervalUnit::Days : IntervalUnit::Months;
    terms.interval = first.days > 0 ? first.days : first.months;
    terms.rateUnit = first.monthlyRate ? RateUnit::Monthly : RateUnit::Yearly;
    terms.method = first.method;
    terms.start = startBefore(first.due.date(), terms);
    // The interest grows with the rate, so one percent's interest yields the rate; rounded to the decimals of a typed rate.
    terms.rate = 1;
    if (problemOf(terms) != InstalmentProblem::None)
        return terms;
    terms.rate = std::round(interest / instalmentPlan(terms).interest * 10'000) / 10'000;
    return terms;
}

void StoredInstalments::remove(int contractID, const QList<int> &seen)
{
    KTransaction::runReplayable([&] {
        OfficeClosing::requireOpen();
        requireReplaceable(contractID, seen);
        deletePlan(contractID);
        KChangeLog::note(planName, contractID, KChange::Kind::Deleted);
    });
}

QString StoredInstalments::receiptText(int number, int contractCode)
{
    return u"بابت قسط شماره %1 قرارداد شماره %2"_s.arg(number).arg(contractCode);
}

StoredInstalments::State StoredInstalments::lock(int contractID, int paymentID)
{
    CTblTemp statement;
    statement.FormatAndExecuteQuery("SELECT iStatus FROM AutomobilPayments WHERE iID=%d AND iAutomobilContractID=%d FOR UPDATE", paymentID,
                                    contractID);
    if (!statement.HasResultRow())
        return State::Gone;
    return statement.GetLongFieldValue(0) == 0 ? State::Unpaid : State::Paid;
}

void StoredInstalments::setPaid(int paymentID, bool paid)
{
    CTblTemp statement;
    statement.Open(true, false, true);
    statement.FormatAndExecuteQuery("UPDATE AutomobilPayments SET iStatus=%d WHERE iID=%d", paid ? 1 : 0, paymentID);
}
