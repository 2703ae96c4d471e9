// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/fields/CarChoices.h"

#include "auto/catalog/parameters/InputParameters.h"
#include "auto/db/CTblCarBrands.h"
#include "suite/accounting/office/CTblItems.h"

using namespace Qt::StringLiterals;

namespace {

template <class Record>
void setUp(Record &rows, const KSql &filter, const KSql &sort)
{
    rows.m_filter = filter;
    rows.m_sort = sort;
    rows.SetColumns({u"sName"_s});
}

void setUp(CTblCarBrands &rows)
{
    setUp(rows, {}, "iID");
}

void setUp(CTblItems &rows)
{
    setUp(rows, InputParameters::valuesFilter(InputParameters::Color), "sName");
}

template <class Record>
QList<KListFilter::Choice> readNames()
{
    Record rows;
    setUp(rows);
    QList<KListFilter::Choice> choices = {{u"همه"_s, 0}};
    for (rows.Open(true, true, true); !rows.IsEOF(); rows.MoveNext())
        choices.append({rows.m_sName, rows.m_iID});
    return choices;
}

template <class Record>
void expectNames()
{
    Record rows;
    setUp(rows);
    rows.expectOpen();
}

}

QList<KListFilter::Choice> CarChoices::types()
{
    return readNames<CTblCarBrands>();
}

QList<KListFilter::Choice> CarChoices::colors()
{
    return readNames<CTblItems>();
}

void CarChoices::expect()
{
    expectNames<CTblCarBrands>();
    expectNames<CTblItems>();
}
