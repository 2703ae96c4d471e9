// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/today/MonthsToday.h"

#include "auto/reports/income/ComprehensiveReport.h"
#include "suite/accounting/books/totals/AccountTotals.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/values/ShamsiDate.h"

#include <span>

using namespace Qt::StringLiterals;

namespace {

enum Row : int {
    Contracts,
    CarsIn,
    CarsOut,
    Income,
    Expenses
};

KSql dayLiteral(const QDate &day)
{
    return DateToSQL(QDateTime(day, QTime(0, 0), Qt::UTC));
}

// The first days of the running month and the five before it, the newest first.
QList<QDate> beginnings(const QDate &today)
{
    const ShamsiDate shamsi = GetShamsi(today);
    const QDate first = ConvertToMiladi(shamsi.year, shamsi.month, 1);
    QList<QDate> days;
    for (int month = 0; month < int(std::tuple_size_v<decltype(TodayFigures::months)>); ++month)
        days.append(addShamsiMonths(first, -month));
    return days;
}

// Which month a day falls into, as a number from 0.
KSql monthOf(const KSql &date, const QList<QDate> &beginnings)
{
    KSql expression = "CASE";
    for (qsizetype month = 0; month < beginnings.size(); ++month)
        expression += " WHEN " + date + ">=" + dayLiteral(beginnings.at(month)) + KSql::formatted(" THEN %1", int(month));
    return expression + " END";
}

KSql within(const KSql &date, const QDate &from, const QDate &today)
{
    return date + ">=" + dayLiteral(from) + " AND " + date + "<" + dayLiteral(today.addDays(1));
}

// The account groups of a side, by their general accounts.
KSql inGroups(std::span<const int> groups)
{
    QList<KSql> ranges;
    for (const int group : groups)
        ranges.append(KSql::formatted("d.iHesabKolCode BETWEEN %1 AND %2", group * 100, group * 100 + 99));
    return "(" + KSql::joined(ranges, " OR ") + ")";
}

KSql statement(const QList<QDate> &months, const QDate &today, bool tellsIncome)
{
    const QDate oldest = months.constLast();
    const QDate first = months.constFirst();
    const int income[] = {ComprehensiveReport::incomeGroup};
    const auto daily = [&](int row, const KSql &amount, std::span<const int> groups) {
        return KSql::formatted(" UNION ALL SELECT %1,DATEDIFF(DATE(d.iDate),", row) + dayLiteral(first) + "),SUM(d.iRows),SUM(" + amount + "),0 FROM ("
            + AccountTotals::days(first, today) + ") d WHERE " + inGroups(groups) + " GROUP BY 2";
    };
    const KSql counted = KSql::formatted("SELECT %1,", int(Contracts)) + monthOf("dateContract", months)
        + " month,COUNT(*),SUM(dAmount),SUM(dCommission) FROM AutomobilContracts WHERE iStatus=0 AND " + within("dateContract", oldest, today) + " AND "
        + Placeholders::none(u"AutomobilContracts"_s) + " GROUP BY 2" + KSql::formatted(" UNION ALL SELECT %1,", int(CarsIn)) + monthOf("dateCreate", months)
        + ",COUNT(*),0,0 FROM AutomobilInformations WHERE iStatus=0 AND " + within("dateCreate", oldest, today) + " AND "
        + Placeholders::none(u"AutomobilInformations"_s) + " GROUP BY 2" + KSql::formatted(" UNION ALL SELECT %1,", int(CarsOut)) + monthOf("dateBuy", months)
        + ",COUNT(*),0,0 FROM AutomobilInformations WHERE iStatus=0 AND bSold<>0 AND " + within("dateBuy", oldest, today) + " AND "
        + Placeholders::none(u"AutomobilInformations"_s) + " GROUP BY 2";
    return tellsIncome ? counted + daily(Income, "d.dBes-d.dBed", income) + daily(Expenses, "d.dBed-d.dBes", ComprehensiveReport::expenseGroups) : counted;
}

void addUp(QList<double> &days)
{
    for (qsizetype day = 1; day < days.size(); ++day)
        days[day] += days.at(day - 1);
}

}

TodayFigures MonthsToday::read(const TodayFrame &frame)
{
    TodayFigures figures;
    const QList<QDate> months = beginnings(frame.today);
    for (std::size_t month = 0; month < figures.months.size(); ++month)
        figures.months[month].name = shamsiMonthName(GetShamsi(months.at(qsizetype(month))).month);
    if (frame.tellsIncome) {
        figures.income.resize(months.constFirst().daysTo(frame.today) + 1);
        figures.expenses.resize(figures.income.size());
    }
    CTblTemp query(frame.database);
    for (query.ExecuteQuery(statement(months, frame.today, frame.tellsIncome)); query.HasResultRow(); query.MoveNextResult()) {
        const auto at = static_cast<std::size_t>(query.GetLongFieldValue(1));
        const int count = query.GetLongFieldValue(2);
        switch (query.GetLongFieldValue(0)) {
        case Contracts:
            figures.months.at(at).contracts = count;
            figures.months.at(at).amount = query.GetDoubleFieldValue(3);
            figures.months.at(at).commission = query.GetDoubleFieldValue(4);
            break;
        case CarsIn: figures.months.at(at).carsIn = count; break;
        case CarsOut: figures.months.at(at).carsOut = count; break;
        case Income: figures.income[qsizetype(at)] = query.GetDoubleFieldValue(3); break;
        case Expenses: figures.expenses[qsizetype(at)] = query.GetDoubleFieldValue(3); break;
        default: break;
        }
    }
    addUp(figures.income);
    addUp(figures.expenses);
    return figures;
}
