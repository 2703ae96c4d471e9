// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/StoredInstalments.h"

#include "auto/contracts/document/ContractPosting.h"
#include "auto/contracts/instalments/PlanSpread.h"
#include "auto/db/PlanTrace.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilPayments.h"
#include "auto/db/ContractLock.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/treasury/records/CTblReceipts.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QHash>

#include <cmath>
#include <map>

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

KSql locking(bool locked)
{
    return locked ? KSql(" FOR UPDATE") : KSql();
}

// What the receipts that stand say, by instalment.
KSql receivedStatement(int contractID, bool locked)
{
    return KSql::formatted("SELECT iPaymentID,SUM(IF(iKind=%1,-dAmount,dAmount)) FROM Receipts WHERE iTable=%2 AND iRecordID=%3"
                           " AND iStatus=%4 AND iPaymentID>0 GROUP BY iPaymentID",
                           int(CTblReceipts::paid), int(CTblAutomobilContracts::recordKind), contractID, int(CTblReceipts::valid))
        + locking(locked);
}

QHash<int, double> receivedFor(int contractID, bool locked)
{
    QHash<int, double> received;
    CTblTemp statement;
    statement.Open(true, false, true);
    statement.ExecuteQuery(receivedStatement(contractID, locked));
    for (; statement.HasResultRow(); statement.MoveNextResult())
        received.insert(statement.GetLongFieldValue(0), statement.GetDoubleFieldValue(1));
    return received;
}

// The plan of each department is one of its own.
void setDues(std::vector<StoredInstalments::Row> &rows)
{
    std::map<int, std::vector<double>> amounts;
    for (const StoredInstalments::Row &row : rows)
        amounts[row.departmentID].push_back(row.amount);
    const int decimals = GetDBSetting()->MoneyDecimals();
    for (auto &[department, ofPlan] : amounts) {
        const std::vector<double> dues = amountsToReceive(ofPlan, decimals);
        auto due = dues.cbegin();
        for (StoredInstalments::Row &row : rows) {
            if (row.departmentID == department)
                row.due = *due++;
        }
    }
}

StoredInstalments::Row rowOf(const CTblTemp &found)
{
    StoredInstalments::Row row;
    row.id = found.GetLongFieldValue(0);
    row.number = found.GetLongFieldValue(1);
    row.date = found.GetDateFieldValue(2);
    row.amount = found.GetDoubleFieldValue(3);
    row.interest = found.GetDoubleFieldValue(4);
    row.description = found.GetTextFieldValue(5);
    row.paid = found.GetLongFieldValue(6) != 0;
    row.personID = found.GetLongFieldValue(7);
    row.days = found.GetLongFieldValue(8);
    row.months = found.GetLongFieldValue(9);
    row.monthlyRate = found.GetLongFieldValue(10) != 0;
    row.method = found.GetLongFieldValue(11) == decliningLevel ? InterestMethod::DecliningPrincipal : InterestMethod::WholePrincipal;
    row.departmentID = found.GetLongFieldValue(12);
    return row;
}

std::vector<StoredInstalments::Row> rowsOf(int contractID, StoredInstalments::Scope scope, bool locked)
{
    const KSql condition =
        scope == StoredInstalments::Scope::Department ? ofContract(contractID) : KSql::formatted("iAutomobilContractID=%1", contractID);
    const QHash<int, double> received = receivedFor(contractID, locked);
    std::vector<StoredInstalments::Row> rows;
    CTblTemp found;
    found.Open(true, false, true);
    found.ExecuteQuery("SELECT iID,iNum,date,dAmount,dExtra,sDesc,iStatus,iPersonID,iDays,iMonths,bPercentMonthly,iLevel,iDepartmentID FROM AutomobilPayments"
                       " WHERE "
                       + condition + " ORDER BY date,iID" + locking(locked));
    for (; found.HasResultRow(); found.MoveNextResult()) {
        rows.push_back(rowOf(found));
        rows.back().received = received.value(rows.back().id);
    }
    setDues(rows);
    return rows;
}

// Returns what is stored.
std::vector<StoredInstalments::Row> requireReplaceable(CTblAutomobilContracts &contract, int contractID, const QList<int> &seen)
{
    ContractLock::take(contract, contractID);
    const std::vector<StoredInstalments::Row> rows = StoredInstalments::loadLocked(contractID);
    for (const StoredInstalments::Row &row : rows) {
        if (row.paid || row.state().kind != InstalmentState::Unpaid)
            throw KAccountingError(u"در این میان قسطی از این قرارداد دریافت شده است و برنامه اقساط آن دیگر تغییر نمی‌کند. چیزی ذخیره نشد."_s);
    }
    const QList<int> stored = StoredInstalments::keysOf(rows);
    if (stored != seen)
        throw StoredInstalments::Changed(u"%1 برنامه اقساط این قرارداد را در این میان تغییر داده است. چیزی ذخیره نشد."_s.arg(StoredInstalments::lastChange(contractID)),
                                         stored);
    return rows;
}

// For the history.
QList<PlanTrace::Line> linesOf(const std::vector<StoredInstalments::Row> &rows)
{
    QList<PlanTrace::Line> lines;
    for (const StoredInstalments::Row &row : rows)
        lines.append({row.number, row.date.date(), row.amount, row.interest});
    return lines;
}

void deletePlan(int contractID)
{
    CTblTemp statement;
    statement.Open(true, false, true);
    statement.ExecuteQuery("DELETE FROM AutomobilPayments WHERE " + ofContract(contractID));
}

std::vector<PlanSpread::Row> spreadRowsOf(const std::vector<StoredInstalments::Row> &rows)
{
    std::vector<PlanSpread::Row> spread;
    for (const StoredInstalments::Row &row : rows)
        spread.push_back({row.amount, row.interest, row.due, row.state().rest});
    return spread;
}

void deleteInstalment(int paymentID)
{
    CTblTemp statement;
    statement.Open(true, false, true);
    statement.FormatAndExecuteQuery("DELETE FROM AutomobilPayments WHERE iID=%d", paymentID);
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

std::vector<StoredInstalments::Row> StoredInstalments::load(int contractID, Scope scope)
{
    return rowsOf(contractID, scope, false);
}

std::vector<StoredInstalments::Row> StoredInstalments::loadLocked(int contractID, Scope scope)
{
    return rowsOf(contractID, scope, true);
}

// Those of the plan can be named only when the department is known.
void StoredInstalments::expectLocked(int contractID)
{
    CDBSetting::expectDepartments();
    KReadAhead::expect(receivedStatement(contractID, true));
}

QString StoredInstalments::lastChange(int contractID)
{
    return RowChanged::lastChange(PlanTrace::name(), contractID);
}

PlanFigures StoredInstalments::figuresOf(const std::vector<Row> &rows, double principal)
{
    PlanFigures figures;
    figures.principal = termsOf(rows).principal;
    for (const Row &row : rows) {
        const InstalmentState state = row.state();
        figures.anyReceived = figures.anyReceived || row.paid || state.kind != InstalmentState::Unpaid;
        figures.hasOpen = figures.hasOpen || state.kind != InstalmentState::Paid;
        if (state.kind != InstalmentState::Paid && !figures.personID)
            figures.personID = row.personID;
    }
    figures.receivedIsWithin = PlanSpread::problemOf(spreadRowsOf(rows), principal) == PlanSpread::Problem::None;
    return figures;
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
        CTblDocuments::lockBooks();
        OfficeClosing::requireOpen();
        CTblAutomobilContracts contract;
        const std::vector<Row> before = requireReplaceable(contract, owner.contractID, seen);
        deletePlan(owner.contractID);
        CTblAutomobilPayments payment;
        int number = 0;
        for (const Instalment &instalment : plan.instalments) {
            payment.AddNew();
            payment.m_iNum = ++number;
            payment.m_dExtra = plan.interest / terms.count;
            addInstalment(payment, owner, terms, instalment);
        }
        PlanTrace::noteRows(owner.contractID, before.empty() ? KChange::Kind::Added : KChange::Kind::Changed, linesOf(before), linesOf(load(owner.contractID)));
        ContractPosting::followPlan(contract);
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
    terms.start = startBefore(first.date.date(), terms);
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
        CTblDocuments::lockBooks();
        OfficeClosing::requireOpen();
        CTblAutomobilContracts contract;
        requireReplaceable(contract, contractID, seen);
        removeLocked(contractID);
        ContractPosting::followPlan(contract);
    });
}

void StoredInstalments::removeLocked(int contractID)
{
    const std::vector<Row> before = loadLocked(contractID);
    deletePlan(contractID);
    PlanTrace::noteRows(contractID, KChange::Kind::Deleted, linesOf(before), {});
}

void StoredInstalments::spread(const CTblAutomobilContracts &contract, const std::vector<Row> &rows, double principal)
{
    const std::vector<PlanSpread::Part> parts = PlanSpread::of(spreadRowsOf(rows), principal, GetDBSetting()->MoneyDecimals());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        CTblAutomobilPayments payment;
        payment.lockRecord(rows[i].id);
        const InstalmentState before = rows[i].state();
        if (before.kind == InstalmentState::Unpaid && IsEquals(parts[i].amount, 0)) {
            deleteInstalment(rows[i].id);
            continue;
        }
        payment.Edit();
        payment.m_dAmount = parts[i].amount;
        payment.m_dExtra = parts[i].interest;
        if (before.kind != InstalmentState::Paid)
            payment.m_iPersonID = contract.m_iPersonSecondID;
        payment.Update(true);
        const bool paid = InstalmentState::of(parts[i].amount, rows[i].received, rows[i].paid).kind == InstalmentState::Paid;
        if (paid != rows[i].paid)
            setPaid(rows[i].id, paid);
    }
    PlanTrace::noteRows(contract.m_iID, KChange::Kind::Changed, linesOf(rows), linesOf(loadLocked(contract.m_iID)));
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

void StoredInstalments::recount(int contractID, int paymentID)
{
    for (const Row &row : loadLocked(contractID, Scope::AllDepartments)) {
        const bool whole = InstalmentState::of(row.due, row.received, false).kind == InstalmentState::Paid;
        if (row.id == paymentID && whole != row.paid) {
            setPaid(paymentID, whole);
            PlanTrace::notePaid(contractID, row.number, whole);
        }
    }
}
