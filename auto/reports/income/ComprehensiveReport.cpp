// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/income/ComprehensiveReport.h"

#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/books/chart/CTblHesabKol.h"
#include "suite/accounting/books/chart/CTblHesabMoeen.h"
#include "suite/accounting/books/chart/CTblHesabTafsily.h"

using namespace Qt::StringLiterals;

namespace {

using namespace IncomeAndExpenses;

// The accounts of one level of the chart; parent returns the code of the account above from the record.
template <class Table, class Parent>
QList<ChartAccount> accounts(const KSql &filter, const Parent &parent)
{
    QList<ChartAccount> accounts;
    Table table;
    table.m_filter = filter;
    table.m_sort = "iCode";
    for (table.Open(true, true, true); !table.IsEOF(); table.MoveNext())
        accounts.append({table.m_iCode, table.m_sName, parent(table)});
    return accounts;
}

// The codes of subsidiary accounts have two digits more than those of the general accounts that they begin with, so that
// they start with the group as well and one statement reads a whole level.
Group readGroup(int code, const QDateTime &from, const QDateTime &to)
{
    Group group;
    group.general = accounts<CTblHesabKol>(KSql::formatted("iCode DIV 100=%1 AND iStatus=0", code),
                                           [](const CTblHesabKol &) { return 0; });
    group.subsidiary = accounts<CTblHesabMoeen>(KSql::formatted("iHesabKolCode DIV 100=%1 AND iStatus=0", code),
                                                [](const CTblHesabMoeen &account) { return account.m_iHesabKolCode; });
    group.detail = accounts<CTblHesabTafsily>(KSql::formatted("iHesabMoeenCode DIV 10000=%1 AND iStatus=0", code),
                                              [](const CTblHesabTafsily &account) { return account.m_iHesabMoeenCode; });
    group.generalBalances = CTblDocs::balances(AccountLevel::Kol, from, to, code);
    group.subsidiaryBalances = CTblDocs::balances(AccountLevel::Moeen, from, to, code);
    group.detailBalances = CTblDocs::balances(AccountLevel::Tafsily, from, to, code);
    return group;
}

}

ComprehensiveReport ComprehensiveReport::read(const QDateTime &from, const QDateTime &to)
{
    ComprehensiveReport report;
    add(report.income, readGroup(incomeGroup, from, to));
    for (const int group : expenseGroups)
        add(report.expenses, readGroup(group, from, to));
    return report;
}
